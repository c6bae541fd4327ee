#pragma once

#include <filesystem>
#include <string_view>
#include <vector>

namespace rondora::macos {

inline constexpr std::string_view kBundleEnding = ".app";

/// The application bundles in a folder and in folders of it, but none inside a bundle; a bundle itself is its only one.
/// Hidden files and what lies deeper than people file their applications are left out.
std::vector<std::filesystem::path> applicationBundles(const std::filesystem::path& folder);

}  // namespace rondora::macos
