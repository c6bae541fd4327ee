#pragma once

#include <memory>

#include "base/observable.h"
#include "platform/application_icons.h"
#include "ui/appkit/windows/settings_shell.h"
#include "ui/painting/icon_sources.h"
#include "ui/qt/settings/settings_drawing.h"

class QApplication;

namespace rondora::appkit {

/// The settings' window of the toolkit. The toolkit starts when it opens for the first time; from then on its events
/// come from the application's own run loop.
class QtSettings final : public SettingsShell {
 public:
  /// `applicationIcons` must outlive the object and its windows.
  QtSettings(const ApplicationIcons& applicationIcons, IconSources sources);
  ~QtSettings() override;

  std::unique_ptr<SettingsWindow> makeWindow(WindowContents contents) override;
  void closePopups() override;
  void forgetApplications() override { applicationsChanged_.send(); }

 private:
  void startToolkit();
  SettingsDrawing makeDrawing() const;

  const ApplicationIcons& applicationIcons_;
  IconSources sources_;
  Signal<> applicationsChanged_;
  std::unique_ptr<QApplication> toolkit_;
};

}  // namespace rondora::appkit
