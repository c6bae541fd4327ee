#pragma once

#include <functional>
#include <vector>

#include "base/observable.h"
#include "platform/main_queue.h"
#include "platform/windows.h"

namespace rondora {

using SessionFindings = std::vector<SessionFinding>;
using FindingsObserver = std::function<void(const SessionFindings&)>;

/// The findings that name something to mend.
SessionFindings failures(SessionFindings findings);

/// Calls `observer` at once with what `read` returns, and again after each change. Reads every second until the result
/// is destroyed. Main thread.
[[nodiscard]] Subscription watchFindings(MainQueue& mainQueue, std::function<SessionFindings()> read,
                                         FindingsObserver observer);

}  // namespace rondora
