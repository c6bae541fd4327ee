#pragma once

#include "platform/log.h"

namespace rondora::desktop {

/// Sends the messages of GLib's libraries to the log, which never blocks, while it exists; otherwise they go to
/// standard error. At most one instance, created before GLib is used.
class GlibMessages {
 public:
  explicit GlibMessages(Log& log);
  ~GlibMessages();
  GlibMessages(const GlibMessages&) = delete;
  GlibMessages& operator=(const GlibMessages&) = delete;
};

}  // namespace rondora::desktop
