#include "platform/macos/conversions/pasteboard_type.h"

#include "base/program_identity.h"

namespace rondora::macos {

std::string pasteboardType(std::string_view mediaType) {
  constexpr std::string_view kOwn = "application/x-rondora.";
  if (!mediaType.starts_with(kOwn)) return std::string(mediaType);
  return std::string(program_identity::kBundleIdentifier) + "." + std::string(mediaType.substr(kOwn.size()));
}

}  // namespace rondora::macos
