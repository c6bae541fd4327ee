#pragma once

#include <cstddef>
#include <optional>
#include <vector>

namespace rondora::macos {

/// In pixels.
struct PictureSize {
  int width = 0;
  int height = 0;
  friend bool operator==(const PictureSize&, const PictureSize&) = default;
};

/// The size with the picture's proportions whose longer side is `side`; none is below one pixel.
PictureSize fittedSize(PictureSize picture, int side);

/// The place of the picture that suits `side` best, among those of one file within the limit; nothing when none is.
std::optional<std::size_t> bestPicture(const std::vector<PictureSize>& pictures, int side, int maxSide);

}  // namespace rondora::macos
