#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string_view>

#include "base/observable.h"
#include "platform/picture_decoder.h"

namespace rondora {

/// Requests a picture, as `PictureDecoder::decode`; may complete at once.
using DecodePicture = std::function<Subscription(PictureRequest, PictureDecoder::Completion)>;

/// The file with the picture of a web site, by its origin; nothing when there is none.
using SitePicture = std::function<std::optional<std::filesystem::path>(std::string_view site)>;

/// What icons are made of besides symbols and emoji; each function may be empty.
struct IconSources {
  SitePicture sitePicture;
  DecodePicture decode;
};

}  // namespace rondora
