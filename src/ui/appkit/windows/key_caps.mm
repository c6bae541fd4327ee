#include "ui/appkit/windows/key_caps.h"

#include <sstream>

#include "platform/macos/foundation/ns_text.h"
#include "ui/appkit/controls/labels.h"

namespace rondora::appkit {
namespace {

// Points.
constexpr CGFloat kPadding = 8;
constexpr CGFloat kCorner = 5;

std::string trimmed(const std::string& text) {
  const auto first = text.find_first_not_of(' ');
  return first == std::string::npos ? std::string() : text.substr(first, text.find_last_not_of(' ') - first + 1);
}

NSView* makeCap(const std::string& key) {
  NSBox* cap = makeBox(kPadding, [NSTextField labelWithString:macos::nsString(key)]);
  cap.cornerRadius = kCorner;
  cap.borderColor = NSColor.separatorColor;
  cap.borderWidth = 1;
  return cap;
}

}  // namespace

void showKeyCaps(NSStackView* row, const std::string& hotkey) {
  for (NSView* cap in row.arrangedSubviews) [cap removeFromSuperview];
  std::istringstream keys(hotkey);
  for (std::string key; std::getline(keys, key, '+');) {
    if (const std::string name = trimmed(key); !name.empty()) [row addArrangedSubview:makeCap(name)];
  }
  row.hidden = hotkey.empty();
}

}  // namespace rondora::appkit
