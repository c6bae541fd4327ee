#pragma once

#include <memory>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/windows/window_manager_sync.h"
#include "platform/linux/x11/windows/x11_client_windows.h"

namespace rondora::x11 {

/// An X connection of a worker thread's own, so that it does not wait for the main thread's. Opened at first use, by
/// the thread that uses it.
class WorkerConnection {
 public:
  struct Connected {
    explicit Connected(double pixelsPerPoint);

    int screen = 0;
    UniqueCPtr<xcb_connection_t, xcb_disconnect> handle;
    X11Connection connection;
    X11ClientWindows windows;
    WindowManagerSync windowManager;
  };

  explicit WorkerConnection(double pixelsPerPoint) : pixelsPerPoint_(pixelsPerPoint) {}

  /// Null when the server cannot be reached.
  Connected* connected();

 private:
  double pixelsPerPoint_;
  std::unique_ptr<Connected> connected_;
};

}  // namespace rondora::x11
