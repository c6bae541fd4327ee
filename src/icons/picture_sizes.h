#pragma once

#include <string_view>

namespace rondora {

/// False for an ICO of more than PictureDecoder::kMaxPictures and for a PNG, alone or inside an ICO, that has thousands
/// of chunks or states one longer than the file or a side above PictureDecoder::kMaxSide: decoders allocate and clear
/// the stated memory before they find that the bytes are missing. True for all other bytes; the decoders of the other
/// formats check what they read.
bool statesPlausibleSizes(std::string_view picture);

}  // namespace rondora
