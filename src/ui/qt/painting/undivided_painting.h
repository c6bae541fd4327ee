#pragma once

#include <functional>

namespace rondora {

/// Runs `paint` and returns when it is done. The toolkit splits every fill into pieces for the threads of its pool, but
/// not when it paints on one of these: for pictures as small as ours the handing over takes longer than the painting,
/// and on a busy machine very much longer. So the whole of it is handed over once, while the caller waits.
void paintUndivided(const std::function<void()>& paint);

}  // namespace rondora
