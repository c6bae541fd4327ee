#include "ui/appkit/painting/core_text_meter.h"

#include <AppKit/AppKit.h>

#include <algorithm>
#include <iterator>
#include <string>

#include "platform/macos/foundation/cf_values.h"

namespace rondora::appkit {
namespace {

using macos::CFRef;

NSFontWeight weightOf(FontWeight weight) {
  switch (weight) {
    case FontWeight::regular:
      return NSFontWeightRegular;
    case FontWeight::medium:
      return NSFontWeightMedium;
    case FontWeight::semibold:
      return NSFontWeightSemibold;
    case FontWeight::bold:
      return NSFontWeightBold;
  }
}

}  // namespace

Font interfaceFont(double pointSize, FontWeight weight) {
  return Font::share((__bridge CTFontRef)[NSFont systemFontOfSize:pointSize weight:weightOf(weight)]);
}

Line makeLine(const Font& font, std::string_view text) {
  const void* keys[] = {kCTFontAttributeName, kCTForegroundColorFromContextAttributeName};
  const void* values[] = {font.get(), kCFBooleanTrue};
  const auto attributes = CFRef<CFDictionaryRef>::adopt(
      CFDictionaryCreate(kCFAllocatorDefault, keys, values, static_cast<CFIndex>(std::size(keys)),
                         &kCFTypeDictionaryKeyCallBacks, &kCFTypeDictionaryValueCallBacks));
  const auto string = macos::makeString(text);
  if (!string) return {};
  const auto attributed = CFRef<CFAttributedStringRef>::adopt(
      CFAttributedStringCreate(kCFAllocatorDefault, string.get(), attributes.get()));
  return Line::adopt(CTLineCreateWithAttributedString(attributed.get()));
}

LineMetrics lineMetrics(const Font& font, std::string_view text) {
  CGFloat ascent = 0;
  CGFloat descent = 0;
  CGFloat leading = 0;
  if (const Line line = makeLine(font, text)) CTLineGetTypographicBounds(line.get(), &ascent, &descent, &leading);
  return {std::max(ascent, CTFontGetAscent(font.get())), std::max(descent, CTFontGetDescent(font.get())),
          std::max(leading, CTFontGetLeading(font.get()))};
}

double CoreTextMeter::width(std::string_view text) const {
  const Line line = makeLine(font_, text);
  return line ? CTLineGetTypographicBounds(line.get(), nullptr, nullptr, nullptr) : 0;
}

std::vector<std::size_t> CoreTextMeter::breaks(std::string_view text) const {
  std::vector<std::size_t> ends;
  const auto string = macos::makeString(text);
  if (!string) return {text.size()};
  const auto tokens = CFRef<CFStringTokenizerRef>::adopt(
      CFStringTokenizerCreate(kCFAllocatorDefault, string.get(), {0, CFStringGetLength(string.get())},
                              kCFStringTokenizerUnitLineBreak, nullptr));
  std::size_t end = 0;
  CFIndex measured = 0;
  while (CFStringTokenizerAdvanceToNextToken(tokens.get()) != kCFStringTokenizerTokenNone) {
    // With what lies between the tokens, if anything does.
    const CFRange token = CFStringTokenizerGetCurrentTokenRange(tokens.get());
    const CFRange range = {measured, token.location + token.length - measured};
    const auto piece = CFRef<CFStringRef>::adopt(CFStringCreateWithSubstring(kCFAllocatorDefault, string.get(), range));
    end += macos::textOf(piece.get()).size();
    measured += range.length;
    ends.push_back(end);
  }
  if (end != text.size()) ends.push_back(text.size());
  return ends;
}

}  // namespace rondora::appkit
