#pragma once

#include <AppKit/AppKit.h>

namespace rondora::appkit {

/// The key equivalents that every window has on this system: editing texts and closing the window. No user sees it:
/// an accessory has no menu bar.
NSMenu* makeEditingMenu();

}  // namespace rondora::appkit
