#pragma once

#include <string_view>

// What the program is called: by users, in file systems, on buses and by other programs.

namespace rondora::program_identity {

/// Also the name of its folder below the folders for application data and caches.
inline constexpr std::string_view kName = "Rondora";
inline constexpr std::string_view kBundleIdentifier = "io.github.rondora.Rondora";

/// "1.2.3"
std::string_view version();

}  // namespace rondora::program_identity
