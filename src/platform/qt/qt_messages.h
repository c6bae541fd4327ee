#pragma once

#include <functional>

#include "platform/log.h"

namespace rondora {

/// Forwards the toolkit's messages to the log while it exists. At most one instance, created before the toolkit's
/// application object and destroyed after it.
class QtMessages {
 public:
  /// Calls `serverLost` instead of logging the toolkit's message that the X server is gone; the toolkit then exits with
  /// status 1.
  QtMessages(Log& log, std::function<void()> serverLost);
  ~QtMessages();
  QtMessages(const QtMessages&) = delete;
  QtMessages& operator=(const QtMessages&) = delete;
};

}  // namespace rondora
