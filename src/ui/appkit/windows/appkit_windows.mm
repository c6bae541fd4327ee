#include "ui/appkit/windows/appkit_windows.h"

#include <utility>

#include "ui/appkit/popover/appkit_snippet_preview_popover.h"
#include "ui/appkit/windows/onboarding_window.h"

namespace rondora::appkit {

AppKitWindows::AppKitWindows(Services services) : services_(std::move(services)) {}

std::unique_ptr<SettingsWindow> AppKitWindows::makeSettingsWindow() {
  return services_.settings.makeWindow(services_.contents());
}

std::unique_ptr<OnboardingWindow> AppKitWindows::makeOnboardingWindow() {
  return std::make_unique<AppKitOnboardingWindow>(services_.contents(), services_.mainQueue);
}

std::unique_ptr<SnippetPreviewPopover> AppKitWindows::makeSnippetPreviewPopover() {
  return std::make_unique<AppKitSnippetPreviewPopover>();
}

void AppKitWindows::closePopups() {
  menuTracking_.cancel();
  services_.settings.closePopups();
}

}  // namespace rondora::appkit
