#pragma once

#include "platform/accessibility.h"
#include "platform/linux/application_menus.h"
#include "platform/linux/x11/windows/window_owners.h"
#include "platform/linux/x11/windows/worker_connection.h"

namespace rondora::x11 {

/// The windows of applications, over EWMH: positions and sizes are those of the visible frame. Their menus come from
/// `ApplicationMenus`. One worker thread.
class X11Accessibility final : public Accessibility {
 public:
  /// Arguments must outlive the object.
  X11Accessibility(WorkerConnection& worker, const WindowOwners& owners) : worker_(worker), owners_(owners) {}

  /// Without it no application has a menu bar. Before the first use; `menus` must outlive the object.
  void setMenus(ApplicationMenus& menus) { menus_ = &menus; }

  AXElementRef application(std::int32_t processIdentifier) override;
  /// The window manager lists all windows, so there are none to find by token.
  AXElementRef windowByRemoteToken(std::int32_t /*ownerPID*/, std::uint32_t /*number*/) override { return nullptr; }
  void prepareToRead(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                     double seconds) override;

 private:
  WorkerConnection& worker_;
  const WindowOwners& owners_;
  ApplicationMenus* menus_ = nullptr;
};

}  // namespace rondora::x11
