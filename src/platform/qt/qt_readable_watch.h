#pragma once

#include <functional>

#include "base/observable.h"

namespace rondora {

/// Calls `readable` on the event loop whenever the descriptor is readable, until the result is destroyed. Main thread.
[[nodiscard]] Subscription watchReadable(int descriptor, std::function<void()> readable);

}  // namespace rondora
