#pragma once

#include <string>
#include <string_view>

namespace rondora::macos {

/// The system's name of a private type: in reverse-domain form below the program's identifier, for a media type
/// "application/x-rondora.NAME". Other types keep their name.
std::string pasteboardType(std::string_view mediaType);

}  // namespace rondora::macos
