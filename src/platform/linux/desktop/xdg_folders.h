#pragma once

#include "platform/posix/posix_file_system.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// The user's folders by the XDG base directory rules: XDG_CONFIG_HOME and XDG_CACHE_HOME, else below HOME, which the
/// user database replaces when it is not set.
PosixFileSystem::Folders xdgFolders(const ProcessEnvironment& environment);

}  // namespace rondora::desktop
