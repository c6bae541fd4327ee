#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rondora {

/// A document of the predecessor application with the paths into its favicon cache leading to this program's: those
/// under a folder "Caches", and those under `caches`, this system's folder for caches. A rewrite of the text, plain and
/// with JSON's escaped slashes, on purpose: the document need not be readable by this build.
std::string withOwnFaviconPaths(std::string_view document, const std::filesystem::path& caches);

}  // namespace rondora
