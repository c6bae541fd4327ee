#include "ui/appkit/controls/labels.h"

#include "platform/macos/foundation/ns_text.h"

namespace rondora::appkit {
namespace {

using macos::nsString;

NSStackView* makeStack(NSUserInterfaceLayoutOrientation orientation, NSLayoutAttribute alignment, CGFloat spacing) {
  NSStackView* stack = [[NSStackView alloc] init];
  stack.orientation = orientation;
  stack.alignment = alignment;
  stack.spacing = spacing;
  return stack;
}

}  // namespace

NSTextField* makeWrappingLabel(CGFloat width) {
  NSTextField* label = [NSTextField wrappingLabelWithString:@""];
  label.preferredMaxLayoutWidth = width;
  label.selectable = NO;
  return label;
}

void setText(NSTextField* label, const std::string& text) {
  label.stringValue = nsString(text);
  label.hidden = text.empty();
}

NSStackView* makeColumn(CGFloat spacing) {
  return makeStack(NSUserInterfaceLayoutOrientationVertical, NSLayoutAttributeLeading, spacing);
}

NSStackView* makeRow(CGFloat spacing) {
  return makeStack(NSUserInterfaceLayoutOrientationHorizontal, NSLayoutAttributeTop, spacing);
}

NSBox* makeBox(CGFloat padding, NSView* content) {
  NSBox* box = [[NSBox alloc] init];
  box.boxType = NSBoxCustom;
  box.titlePosition = NSNoTitle;
  [box.contentView addSubview:content];
  content.translatesAutoresizingMaskIntoConstraints = NO;
  [content.leadingAnchor constraintEqualToAnchor:box.leadingAnchor constant:padding].active = YES;
  [content.trailingAnchor constraintEqualToAnchor:box.trailingAnchor constant:-padding].active = YES;
  [content.topAnchor constraintEqualToAnchor:box.topAnchor constant:padding].active = YES;
  [content.bottomAnchor constraintEqualToAnchor:box.bottomAnchor constant:-padding].active = YES;
  return box;
}

void setLayoutDirection(NSView* view, bool isRightToLeft) {
  view.userInterfaceLayoutDirection =
      isRightToLeft ? NSUserInterfaceLayoutDirectionRightToLeft : NSUserInterfaceLayoutDirectionLeftToRight;
  for (NSView* child in view.subviews) setLayoutDirection(child, isRightToLeft);
}

NSImageView* makeSymbolView(const char* symbol, const std::string& name) {
  NSString* description = name.empty() ? nil : nsString(name);
  NSImageView* view = [[NSImageView alloc] init];
  // An older system may lack the symbol.
  view.image = [NSImage imageWithSystemSymbolName:nsString(symbol) accessibilityDescription:description];
  view.accessibilityElement = !name.empty();
  return view;
}

}  // namespace rondora::appkit
