#pragma once

#include <vector>

#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/x11_workspace.h"
#include "platform/window_list.h"

namespace rondora::x11 {

/// The windows of all applications, over EWMH: most recently active first, iconified last. Window numbers are X window
/// ids. Main thread.
class X11WindowList final : public WindowList {
 public:
  /// Arguments must outlive the object.
  X11WindowList(X11Connection& connection, X11ClientWindows& windows, X11Workspace& workspace,
                const WindowOwners& owners);

  std::vector<WindowListEntry> windows() const override;

 private:
  std::vector<WindowListEntry> describe(const std::vector<WindowInfo>& windows) const;

  X11Connection& connection_;
  X11ClientWindows& windows_;
  X11Workspace& workspace_;
  const WindowOwners& owners_;
};

}  // namespace rondora::x11
