#include "ui/appkit/windows/settings_in_finder.h"

#include <AppKit/AppKit.h>

#include <utility>

#include "platform/macos/foundation/ns_text.h"

namespace rondora::appkit {
namespace {

class DocumentInFinder final : public SettingsWindow {
 public:
  explicit DocumentInFinder(SettingsInFinder::Document document) : document_(std::move(document)) {}

  void show() override {
    NSURL* document = [NSURL fileURLWithPath:macos::nsString(document_().native())];
    [NSWorkspace.sharedWorkspace activateFileViewerSelectingURLs:@[ document ]];
  }
  // The Finder's window is not ours.
  void close() override {}

 private:
  SettingsInFinder::Document document_;
};

}  // namespace

std::unique_ptr<SettingsWindow> SettingsInFinder::makeWindow(WindowContents /*contents*/) {
  return std::make_unique<DocumentInFinder>(document_);
}

}  // namespace rondora::appkit
