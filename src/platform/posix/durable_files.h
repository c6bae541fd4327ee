#pragma once

#include <filesystem>
#include <string>
#include <string_view>

#include "platform/file_system.h"

// Atomic file changes, never partly visible. All but those of caches are durable: on disk when they report success.
// Contracts: platform/file_system.h.

namespace rondora::desktop {

/// "cannot write /a/b: No space left on device"; `error` as in errno.
std::string describe(const char* what, const std::filesystem::path& path, int error);

FileError makeFolder(const std::filesystem::path& path);
FileError replaceFile(const std::filesystem::path& path, std::string_view bytes);
FileError replaceCacheFile(const std::filesystem::path& path, std::string_view bytes);
void removeTemporariesIn(const std::filesystem::path& folder);
FileError copyFileOrFolder(const std::filesystem::path& from, const std::filesystem::path& to);
FileError linkOrRename(const std::filesystem::path& path, const std::filesystem::path& name);

}  // namespace rondora::desktop
