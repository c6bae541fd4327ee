#pragma once

#include <string>

#include "platform/linux/application_catalogue.h"

typedef struct _GDesktopAppInfo GDesktopAppInfo;

namespace rondora::desktop {

/// Starts applications so that they live on without us: own session, the user's home folder, no stopped signals, reaped
/// by the system. The user's time goes along, so that the window manager lets the new window have the focus.
class ApplicationLauncher {
 public:
  /// False when it could not be started.
  bool launch(GDesktopAppInfo& application, UserTime time) { return launch(application, {}, time); }
  /// Hands the application something to open.
  bool launch(GDesktopAppInfo& application, const std::string& url, UserTime time);

 private:
  unsigned launches_ = 0;
};

}  // namespace rondora::desktop
