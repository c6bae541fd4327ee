#pragma once

#include <CoreGraphics/CoreGraphics.h>

#include <cstdint>
#include <vector>

#include "base/geometry.h"
#include "base/pixel_rect.h"
#include "platform/macos/foundation/cf_ref.h"
#include "platform/picture_rasterizer.h"

namespace rondora::appkit {

using Image = macos::CFRef<CGImageRef>;
using Context = macos::CFRef<CGContextRef>;

/// Draws into the pixels, in pixels, y down. Null when the buffer is empty.
Context makeContext(PixelBuffer pixels);

/// A copy of the pixels.
Image makeImage(PixelBuffer pixels);

PixelRect sizeOf(const Image& image);

CGRect toCGRect(const Rect& rect);
CGRect toCGRect(const PixelRect& rect);

/// Upright, in a context whose y goes down. Nothing for a null image.
void drawImage(CGContextRef context, const Image& image, CGRect rect);

/// Ends at the end of its scope what it changes in a context's state.
class ContextState {
 public:
  explicit ContextState(CGContextRef context) : context_(context) { CGContextSaveGState(context); }
  ~ContextState() { CGContextRestoreGState(context_); }
  ContextState(const ContextState&) = delete;
  ContextState& operator=(const ContextState&) = delete;

 private:
  CGContextRef context_;
};

/// Pixels of its own, transparent at first; each side has at least one.
class Bitmap {
 public:
  Bitmap(int width, int height);
  Bitmap(Bitmap&&) = default;
  Bitmap& operator=(Bitmap&&) = default;
  Bitmap(const Bitmap&) = delete;
  Bitmap& operator=(const Bitmap&) = delete;

  PixelBuffer buffer();
  CGContextRef context() const { return context_.get(); }
  Image image() { return makeImage(buffer()); }
  PixelRect bounds() const { return {0, 0, width_, height_}; }

 private:
  int width_;
  int height_;
  std::vector<std::uint32_t> pixels_;
  Context context_;
};

}  // namespace rondora::appkit
