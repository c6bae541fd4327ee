#pragma once

#include <functional>

#include "platform/windows.h"
#include "settings/window_contents.h"
#include "ui/qt/painting/icon_images.h"

namespace rondora {

/// What the windows draw icons with.
struct IconDrawing {
  /// Called when the settings open.
  std::function<const ApplicationIcons&()> applications;
  IconSources sources;
};

class QtWindows : public Windows {
 public:
  using Contents = std::function<WindowContents()>;

  /// Calls `contents` when a window is made.
  QtWindows(Contents contents, IconDrawing drawing);

  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;
  void closePopups() override;

 private:
  Contents contents_;
  IconDrawing drawing_;
};

}  // namespace rondora
