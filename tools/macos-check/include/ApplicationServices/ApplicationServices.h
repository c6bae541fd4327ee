// For tools/check-macos. developer.apple.com/documentation/applicationservices: the umbrella of Core Graphics and the
// accessibility interface.
#pragma once

#include <CoreFoundation/CoreFoundation.h>
#include <CoreGraphics/CoreGraphics.h>
