#include "ui/appkit/windows/appkit_file_chooser.h"

#include <UniformTypeIdentifiers/UniformTypeIdentifiers.h>

#include <utility>

#include "platform/macos/conversions/file_extensions.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

/// None: every file.
NSArray<UTType*>* typesOf(const FileChoice& choice) {
  NSMutableArray<UTType*>* types = [NSMutableArray array];
  for (const std::string& extension : macos::extensionsOf(choice.kinds)) {
    if (UTType* type = [UTType typeWithFilenameExtension:nsString(extension)]) [types addObject:type];
  }
  return types;
}

NSSavePanel* makePanel(const FileChoice& choice) {
  NSSavePanel* panel = choice.purpose == FileChoice::Purpose::save ? [NSSavePanel savePanel] : [NSOpenPanel openPanel];
  panel.title = nsString(choice.title);
  panel.message = nsString(choice.title);  // a sheet shows no title
  panel.allowedContentTypes = typesOf(choice);
  if (!choice.suggestedName.empty()) panel.nameFieldStringValue = nsString(choice.suggestedName);
  if (!choice.folder.empty()) panel.directoryURL = [NSURL fileURLWithPath:nsString(choice.folder)];
  return panel;
}

}  // namespace

AppKitFileChooser::~AppKitFileChooser() {
  life_.reset();
  [panel_ cancel:nil];
}

bool AppKitFileChooser::choose(const FileChoice& choice, Completion completion) {
  if (panel_ != nil) {
    [panel_ makeKeyAndOrderFront:nil];
    return false;
  }
  panel_ = makePanel(choice);
  completion_ = std::move(completion);
  const std::weak_ptr<const char> life = life_;
  void (^handler)(NSModalResponse) = ^(NSModalResponse response) {
    if (!life.expired()) finish(response);
  };
  if (NSWindow* window = NSApplication.sharedApplication.keyWindow) {
    [panel_ beginSheetModalForWindow:window completionHandler:handler];
  } else {
    [NSApplication.sharedApplication activateIgnoringOtherApps:YES];
    [panel_ beginWithCompletionHandler:handler];
  }
  return true;
}

void AppKitFileChooser::finish(NSModalResponse response) {
  NSURL* url = response == NSModalResponseOK ? panel_.URL : nil;
  // The completion may ask for the next file.
  panel_ = nil;
  const auto completion = std::exchange(completion_, nullptr);
  if (completion) completion(url == nil ? std::nullopt : std::optional(macos::textOf(url.path)));
}

}  // namespace rondora::appkit
