#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/picture_decoder.h"

// What the program and its picture process send each other. Unpacking accepts any bytes.

namespace rondora::desktop {

std::string packed(const PictureRequest& request);
std::optional<PictureRequest> unpackedRequest(std::string_view message);

std::string packed(const PictureResult& result);
/// Nothing when the message is no plausible result of that request.
std::optional<PictureResult> unpackedResult(std::string_view message, const PictureRequest& request);

}  // namespace rondora::desktop
