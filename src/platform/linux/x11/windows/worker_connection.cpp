#include "platform/linux/x11/windows/worker_connection.h"

namespace rondora::x11 {

WorkerConnection::Connected::Connected(double pixelsPerPoint)
    : handle(xcb_connect(nullptr, &screen)),
      connection(handle.get(), screen, pixelsPerPoint),
      windows(connection),
      windowManager(connection) {}

WorkerConnection::Connected* WorkerConnection::connected() {
  if (!connected_) connected_ = std::make_unique<Connected>(pixelsPerPoint_);
  return xcb_connection_has_error(connected_->handle.get()) == 0 ? connected_.get() : nullptr;
}

}  // namespace rondora::x11
