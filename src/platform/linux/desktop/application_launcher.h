#pragma once

#include <cstdint>
#include <string>

#include "platform/linux/application_catalogue.h"

typedef struct _GDesktopAppInfo GDesktopAppInfo;

namespace rondora::desktop {

/// Starts applications that outlive this program: own session, home folder as working directory, no blocked signals.
/// Passes on the time stamp of the user action, so that the window manager gives the new window the focus.
class ApplicationLauncher {
 public:
  /// False on failure.
  bool launch(GDesktopAppInfo& application, UserTime time) { return launch(application, {}, time); }
  /// Starts the application with `url` to open.
  bool launch(GDesktopAppInfo& application, const std::string& url, UserTime time);
  /// The process of the last launch, a child that the caller has to reap; 0 when the session bus started it.
  std::int32_t lastProcess() const { return lastProcess_; }

 private:
  unsigned launches_ = 0;
  std::int32_t lastProcess_ = 0;
};

}  // namespace rondora::desktop
