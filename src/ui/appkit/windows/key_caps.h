#pragma once

#include <AppKit/AppKit.h>

#include <string>

namespace rondora::appkit {

/// Shows the keys of a hotkey, which are separated by "+", as caps side by side in `row`; empty for none.
void showKeyCaps(NSStackView* row, const std::string& hotkey);

}  // namespace rondora::appkit
