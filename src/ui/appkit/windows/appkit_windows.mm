#include "ui/appkit/windows/appkit_windows.h"

#include <AppKit/AppKit.h>

#include <utility>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/popover/appkit_snippet_preview_popover.h"
#include "ui/appkit/windows/onboarding_window.h"

namespace rondora::appkit {
namespace {

class DocumentInFinder final : public SettingsWindow {
 public:
  explicit DocumentInFinder(const std::filesystem::path& document)
      : document_([NSURL fileURLWithPath:macos::nsString(document.native())]) {}

  void show() override { [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ document_ ]]; }
  // The Finder's window is not ours.
  void close() override {}

 private:
  NSURL* document_;
};

}  // namespace

AppKitWindows::AppKitWindows(Services services) : services_(std::move(services)) {}

std::unique_ptr<SettingsWindow> AppKitWindows::makeSettingsWindow() {
  return std::make_unique<DocumentInFinder>(services_.document());
}

std::unique_ptr<OnboardingWindow> AppKitWindows::makeOnboardingWindow() {
  return std::make_unique<AppKitOnboardingWindow>(services_.contents(), services_.mainQueue);
}

std::unique_ptr<SnippetPreviewPopover> AppKitWindows::makeSnippetPreviewPopover() {
  return std::make_unique<AppKitSnippetPreviewPopover>();
}

}  // namespace rondora::appkit
