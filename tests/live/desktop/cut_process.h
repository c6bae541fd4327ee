#pragma once

#include <functional>

namespace rondora::desktop {

enum class Ending { cut, completed };

/// Runs `action` in a child process and kills it at the given stop (1 for the first). The child stops before and after
/// each system call, so all stops together cover every state that a kill can leave. Throws when the child cannot be
/// traced or fails by itself.
Ending runUntilStop(int stop, const std::function<void()>& action);

}  // namespace rondora::desktop
