#pragma once

#include "platform/front_process.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_workspace.h"
#include "platform/window_list.h"

namespace rondora::x11 {

/// The windows of all applications and the process in front, over EWMH: the last active windows come first, iconified
/// ones last. Serial numbers are process identifiers, window numbers are X window ids. Main thread.
class X11WindowServer final : public WindowList, public FrontProcess {
 public:
  /// All outlive this.
  X11WindowServer(X11Connection& connection, X11WindowList& windows, X11Workspace& workspace, WindowOwners& owners);

  std::vector<WindowListEntry> windows() const override;

  bool available() const override { return true; }
  Lookup processForPID(std::int32_t processIdentifier) const override;
  /// Does nothing when the window's application is in front already.
  std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t window, std::uint32_t options) override;
  /// Window managers tell windows themselves which of them is active.
  bool postsEventRecords() const override { return false; }
  void postEventRecord(ProcessSerialNumber /*process*/, const EventRecord& /*record*/) override {}

 private:
  std::vector<WindowListEntry> describe(const std::vector<WindowInfo>& windows) const;

  X11Connection& connection_;
  X11WindowList& windows_;
  X11Workspace& workspace_;
  WindowOwners& owners_;
};

}  // namespace rondora::x11
