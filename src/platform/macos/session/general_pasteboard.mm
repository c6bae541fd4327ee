#include "platform/macos/session/general_pasteboard.h"

#include <AppKit/AppKit.h>

#include "platform/macos/conversions/pasteboard_type.h"
#include "platform/macos/foundation/ns_text.h"

namespace rondora::macos {
namespace {

NSPasteboardType typeOf(std::string_view type) { return nsString(pasteboardType(type)); }

}  // namespace

void GeneralPasteboard::clearContents() { [NSPasteboard.generalPasteboard clearContents]; }

void GeneralPasteboard::setString(std::string_view text) {
  [NSPasteboard.generalPasteboard setString:nsString(text) forType:NSPasteboardTypeString];
}

void GeneralPasteboard::setData(std::string_view type, std::string_view bytes) {
  [NSPasteboard.generalPasteboard setData:[NSData dataWithBytes:bytes.data() length:bytes.size()] forType:typeOf(type)];
}

std::optional<std::string> GeneralPasteboard::data(std::string_view type) const {
  NSData* found = [NSPasteboard.generalPasteboard dataForType:typeOf(type)];
  if (found == nil) return std::nullopt;
  return std::string(static_cast<const char*>(found.bytes), found.length);
}

}  // namespace rondora::macos
