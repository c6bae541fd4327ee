#pragma once

#include <functional>

#include "platform/windows.h"
#include "settings/window_contents.h"

namespace rondora {

class QtWindows : public Windows {
 public:
  using Contents = std::function<WindowContents()>;

  /// Calls `contents` when a window is made.
  explicit QtWindows(Contents contents);

  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;
  void closePopups() override;

 private:
  Contents contents_;
};

}  // namespace rondora
