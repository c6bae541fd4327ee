#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <string>

#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {

/// The drawing (SVG) in a file, fitted into `side` pixels; null when it is none. Main thread.
CFRef<CGImageRef> readDrawing(const std::string& path, int side);

}  // namespace rondora::macos
