#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// Reads pictures that nobody vouches for. Main thread.
class PictureCodec {
 public:
  virtual ~PictureCodec() = default;

  /// The picture as a PNG that fits into a square of `side` pixels; of several in one file the most fitting. Smaller
  /// pictures keep their size. Nothing when the bytes are no pixel picture (a drawing is none), are broken, or describe
  /// something far larger than an icon.
  virtual std::optional<std::string> thumbnail(std::string_view bytes, int side) = 0;
};

}  // namespace rondora
