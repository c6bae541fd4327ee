#pragma once

#include <functional>

#include "platform/log.h"

namespace rondora {

/// Passes what the toolkit has to say on to the log, as long as this object lives. One at a time. Made before the
/// toolkit's application object and destroyed after it.
class QtMessages {
 public:
  /// `serverLost` is called in place of the toolkit's message that the X server is gone; the toolkit ends the process
  /// with status 1 when it returns.
  QtMessages(Log& log, std::function<void()> serverLost);
  ~QtMessages();
  QtMessages(const QtMessages&) = delete;
  QtMessages& operator=(const QtMessages&) = delete;
};

}  // namespace rondora
