#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// Decodes untrusted pictures whose stated sizes are plausible. Main thread.
class PictureCodec {
 public:
  virtual ~PictureCodec() = default;

  /// The picture as a PNG, scaled down to fit a square of `side` pixels; smaller pictures keep their size. Of several
  /// pictures in one file the best fit. Nothing for vector drawings, corrupt bytes and pictures far larger than an
  /// icon.
  virtual std::optional<std::string> thumbnail(std::string_view bytes, int side) = 0;
};

}  // namespace rondora
