#pragma once

#include "platform/front_process.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_workspace.h"

namespace rondora::x11 {

/// The process in front, over EWMH. Serial numbers are process identifiers, window numbers are X window ids. Main
/// thread.
class X11FrontProcess final : public FrontProcess {
 public:
  /// Arguments must outlive the object.
  X11FrontProcess(X11Connection& connection, X11ClientWindows& windows, X11Workspace& workspace, WindowOwners& owners)
      : connection_(connection), windows_(windows), workspace_(workspace), owners_(owners) {}

  bool available() const override { return true; }
  Lookup processForPID(std::int32_t processIdentifier) const override;
  /// Does nothing when the window's application is in front already.
  std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t window, std::uint32_t options) override;
  /// The window manager tells each window whether it is active.
  bool postsEventRecords() const override { return false; }
  void postEventRecord(ProcessSerialNumber /*process*/, const EventRecord& /*record*/) override {}

 private:
  X11Connection& connection_;
  X11ClientWindows& windows_;
  X11Workspace& workspace_;
  WindowOwners& owners_;
};

}  // namespace rondora::x11
