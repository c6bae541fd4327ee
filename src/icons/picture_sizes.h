#pragma once

#include <string_view>

namespace rondora {

/// False for an ICO of more than 64 pictures and for a PNG, alone or inside an ICO, that states a chunk longer than the
/// file or a side above 1024 pixels: decoders allocate and clear the stated memory before they find that the bytes are
/// missing. True for all other bytes; the decoders of the other formats check what they read.
bool statesPlausibleSizes(std::string_view picture);

}  // namespace rondora
