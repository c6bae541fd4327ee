#include "platform/macos/conversions/picture_fitting.h"

#include <algorithm>
#include <cmath>

#include "platform/picture_decoder.h"

namespace rondora::macos {

PictureSize fittedSize(PictureSize picture, int side) {
  const double scale = static_cast<double>(side) / std::max({picture.width, picture.height, 1});
  const auto scaled = [scale](int length) { return std::max(1, static_cast<int>(std::lround(length * scale))); };
  return {scaled(picture.width), scaled(picture.height)};
}

std::optional<std::size_t> bestPicture(const std::vector<PictureSize>& pictures, int side, int maxSide) {
  std::optional<std::size_t> best;
  for (std::size_t i = 0; i < pictures.size(); ++i) {
    const auto [width, height] = pictures[i];
    if (width < 1 || height < 1 || std::max(width, height) > maxSide) continue;
    if (!best || PictureDecoder::isBetterFit(width, pictures[*best].width, side)) best = i;
  }
  return best;
}

}  // namespace rondora::macos
