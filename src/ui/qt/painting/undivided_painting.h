#pragma once

#include <functional>

namespace rondora {

/// Runs `paint` on one thread of the toolkit's pool while the caller waits, or on the caller's when the pool is busy.
/// On any other thread the toolkit splits each fill among the threads of its pool; for pictures as small as ours the
/// hand-over takes longer than the painting, and far longer on a busy machine.
void paintUndivided(const std::function<void()>& paint);

}  // namespace rondora
