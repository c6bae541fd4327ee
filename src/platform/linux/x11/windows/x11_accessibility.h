#pragma once

#include <memory>

#include "platform/accessibility.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_client_windows.h"
#include "platform/spaces.h"

namespace rondora::x11 {

/// An X connection for a worker thread, which must not wait for the one that the main thread reads. Made by the thread
/// that uses it, at the first use.
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

/// What the accessibility interface of other systems tells of windows, over EWMH: their list, whether they are
/// minimised, and raising them. One worker thread.
class X11Accessibility final : public Accessibility {
 public:
  /// Both outlive this.
  X11Accessibility(WorkerConnection& worker, const WindowOwners& owners) : worker_(worker), owners_(owners) {}

  AXElementRef application(std::int32_t processIdentifier) override;
  /// The window manager lists all windows; there are no others.
  AXElementRef windowByRemoteToken(std::int32_t /*ownerPID*/, std::uint32_t /*number*/) override { return nullptr; }

 private:
  WorkerConnection& worker_;
  const WindowOwners& owners_;
};

/// The desktops of the window manager as the spaces of one display. One worker thread.
class X11Spaces final : public Spaces {
 public:
  /// `worker` outlives this.
  explicit X11Spaces(WorkerConnection& worker) : worker_(worker) {}

  std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t window) const override;
  std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const override;

 private:
  WorkerConnection& worker_;
};

}  // namespace rondora::x11
