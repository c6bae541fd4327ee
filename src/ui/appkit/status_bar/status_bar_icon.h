#pragma once

#include <AppKit/AppKit.h>

namespace rondora::appkit {

/// The program's ring in one colour, which the system chooses.
NSImage* makeStatusBarIcon();

}  // namespace rondora::appkit
