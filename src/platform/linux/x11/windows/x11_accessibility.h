#pragma once

#include <memory>

#include "platform/accessibility.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_client_windows.h"
#include "platform/spaces.h"

namespace rondora::x11 {

/// An X connection of a worker thread's own, so that it does not wait for the main thread's. Opened at first use, by
/// the thread that uses it.
class WorkerConnection {
 public:
  explicit WorkerConnection(double pixelsPerPoint) : pixelsPerPoint_(pixelsPerPoint) {}

  /// Null when the server cannot be reached.
  X11Connection* connection();
  X11ClientWindows* windows();

 private:
  struct Connected;
  struct Disconnect {
    void operator()(Connected* connected) const;
  };

  Connected* connected();

  double pixelsPerPoint_;
  std::unique_ptr<Connected, Disconnect> connected_;
};

/// Accessibility over EWMH: lists the windows of an application, reads and clears their minimised state, raises them.
/// One worker thread.
class X11Accessibility final : public Accessibility {
 public:
  /// Arguments must outlive the object.
  X11Accessibility(WorkerConnection& worker, const WindowOwners& owners) : worker_(worker), owners_(owners) {}

  AXElementRef application(std::int32_t processIdentifier) override;
  /// The window manager lists all windows, so there are none to find by token.
  AXElementRef windowByRemoteToken(std::int32_t /*ownerPID*/, std::uint32_t /*number*/) override { return nullptr; }

 private:
  WorkerConnection& worker_;
  const WindowOwners& owners_;
};

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
