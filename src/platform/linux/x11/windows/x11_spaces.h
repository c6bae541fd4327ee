#pragma once

#include "platform/linux/x11/windows/worker_connection.h"
#include "platform/spaces.h"

namespace rondora::x11 {

/// The desktops of the window manager as the spaces of one display. One worker thread.
class X11Spaces final : public Spaces {
 public:
  /// `worker` must outlive the object.
  explicit X11Spaces(WorkerConnection& worker) : worker_(worker) {}

  std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t window) const override;
  std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const override;

 private:
  WorkerConnection& worker_;
};

}  // namespace rondora::x11
