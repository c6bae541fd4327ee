#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/accessibility.h"
#include "platform/clock.h"
#include "platform/front_process.h"
#include "platform/log.h"
#include "platform/permission_service.h"
#include "platform/serial_queue.h"
#include "platform/window_list.h"
#include "platform/workspace.h"
#include "windows/space_switcher.h"

namespace rondora {

/// Brings a running application forward with the window that the user most likely wants, also from another space and
/// from the minimised state.
class RunningAppFocus {
 public:
  static constexpr std::string_view kQueueLabel = "Rondora.RunningAppFocus.ax";

  /// The references must outlive the object.
  struct Ports {
    Workspace& workspace;
    WindowList& windowList;
    FrontProcess& frontProcess;
    PermissionService& permissions;
    /// Used on the accessibility queue only.
    Accessibility& accessibility;
    SpaceSwitcher& spaceSwitcher;
    const Clock& clock;
    Log& log;
  };

  RunningAppFocus(const Ports& ports, std::unique_ptr<SerialQueue> accessibilityQueue);

  /// False when the application could not be made frontmost; the caller then opens it instead. Does not wait for the
  /// application: steps that need its reply follow on the accessibility queue. Main thread.
  bool focus(const RunningApplication& application);

  /// The first ordinary, visible window of the process that is no palette: at least 100 by 100 points.
  static std::optional<std::uint32_t> frontmostWindowID(const std::vector<WindowListEntry>& windows,
                                                        std::int32_t ownerPID);
  /// Does nothing where the system takes no event records. Main thread.
  void makeKeyWindow(std::uint32_t window, ProcessSerialNumber process);
  /// Raises the window, otherwise one that is not minimised; restores one when all are. Accessibility queue.
  void raiseWindow(std::uint32_t window, std::int32_t ownerPID, const std::string& bundleID);

 private:
  bool fail(const std::string& bundleID, const std::string& reason);
  void note(const std::string& bundleID, const std::string& what);
  bool raise(AXElement& window) const;
  AXElementRef windowElement(const std::vector<AXElementRef>& windows, std::uint32_t window, std::int32_t ownerPID);

  Ports ports_;
  /// Its destructor waits for work that uses the members above.
  std::unique_ptr<SerialQueue> accessibilityQueue_;
};

}  // namespace rondora
