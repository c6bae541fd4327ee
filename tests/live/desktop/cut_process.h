#pragma once

#include <functional>

namespace rondora::desktop {

enum class Ending { cut, completed };

/// Runs `action` in a child process and kills that process at the given stop (1 for the first). It stops before and
/// after each of its system calls, so that going through all stops cuts it everywhere that the outside can tell apart.
/// Throws when the child cannot be watched or fails by itself.
Ending runUntilStop(int stop, const std::function<void()>& action);

}  // namespace rondora::desktop
