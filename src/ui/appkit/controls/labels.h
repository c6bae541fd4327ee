#pragma once

#include <AppKit/AppKit.h>

#include <string>

namespace rondora::appkit {

/// A label that wraps at `width` points; the Tab key passes it over.
NSTextField* makeWrappingLabel(CGFloat width);
void setText(NSTextField* label, const std::string& text);

/// A stack of views at its leading edge.
NSStackView* makeColumn(CGFloat spacing);
/// A stack of views side by side.
NSStackView* makeRow(CGFloat spacing);

/// A box without a title that keeps `padding` points around its content.
NSBox* makeBox(CGFloat padding, NSView* content);

/// Has the view and all below it read from right to left, or from left to right.
void setLayoutDirection(NSView* view, bool isRightToLeft);

/// A symbol of the system, which screen readers call by that name; one without a name they pass over.
NSImageView* makeSymbolView(const char* symbol, const std::string& name);

}  // namespace rondora::appkit
