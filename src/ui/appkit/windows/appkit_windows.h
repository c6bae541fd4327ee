#pragma once

#include <functional>

#include "platform/main_queue.h"
#include "platform/windows.h"
#include "settings/window_contents.h"
#include "ui/appkit/windows/menu_tracking.h"
#include "ui/appkit/windows/settings_shell.h"

namespace rondora::appkit {

class AppKitWindows final : public Windows {
 public:
  struct Services {
    MainQueue& mainQueue;
    /// Called when a window is made.
    std::function<WindowContents()> contents;
    SettingsShell& settings;
  };

  explicit AppKitWindows(Services services);

  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;
  void closePopups() override;

 private:
  Services services_;
  MenuTracking menuTracking_;
};

}  // namespace rondora::appkit
