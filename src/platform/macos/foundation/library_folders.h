#pragma once

#include "platform/posix/posix_file_system.h"

namespace rondora::macos {

/// Application Support and Caches in the user's library, wherever the system keeps that.
desktop::PosixFileSystem::Folders libraryFolders();

}  // namespace rondora::macos
