#pragma once

#include <filesystem>
#include <functional>

#include "platform/main_queue.h"
#include "platform/windows.h"
#include "settings/window_contents.h"
#include "ui/appkit/windows/menu_tracking.h"

namespace rondora::appkit {

/// The settings have no window here: the document is shown in the Finder instead.
class AppKitWindows final : public Windows {
 public:
  struct Services {
    MainQueue& mainQueue;
    /// Both are called when a window is made.
    std::function<WindowContents()> contents;
    std::function<std::filesystem::path()> document;
  };

  explicit AppKitWindows(Services services);

  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;
  void closePopups() override { menuTracking_.cancel(); }

 private:
  Services services_;
  MenuTracking menuTracking_;
};

}  // namespace rondora::appkit
