#pragma once

#include <filesystem>
#include <string>
#include <string_view>

namespace rondora {

/// Redirects the favicon paths of a predecessor's document to this program's cache: paths below a folder "Caches" and
/// `predecessorFolder` in `caches`, this system's cache folder. Rewrites the text, plain and with JSON's escaped
/// slashes, because this build may be unable to decode the document.
std::string withOwnFaviconPaths(std::string_view document, const std::filesystem::path& caches,
                                std::string_view predecessorFolder);

}  // namespace rondora
