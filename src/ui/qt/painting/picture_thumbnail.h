#pragma once

#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// The picture as a PNG, as `PictureRequest::Source::bytes` says. Nothing for vector drawings, corrupt bytes and
/// pictures beyond the limits of PictureDecoder.
std::optional<std::string> pictureThumbnail(std::string_view bytes, int side);

}  // namespace rondora
