#pragma once

namespace rondora::desktop {

/// Replaces the process by a new instance of this program with these arguments, null-terminated. Returns on failure.
void executeOwnImage(char** arguments);

}  // namespace rondora::desktop
