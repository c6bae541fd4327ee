#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// Decodes untrusted pictures whose stated sizes are plausible. Main thread.
class PictureCodec {
 public:
  /// Limits of a picture that may be an icon: pixels of a side, and pictures in one file.
  static constexpr int kMaxSide = 1024;
  static constexpr int kMaxPictures = 64;

  virtual ~PictureCodec() = default;

  /// The picture as a PNG, scaled down to fit a square of `side` pixels; smaller pictures keep their size. Of several
  /// pictures in one file the best fit. Nothing for vector drawings, corrupt bytes and pictures beyond the limits.
  virtual std::optional<std::string> thumbnail(std::string_view bytes, int side) = 0;

  /// Of two widths the better one for a picture of `side` pixels: the smallest that suffices, else the largest.
  static bool isBetterFit(int width, int other, int side) {
    const bool suffices = width >= side;
    if (suffices != (other >= side)) return suffices;
    return suffices ? width < other : width > other;
  }
};

}  // namespace rondora
