#pragma once

#include <cstdint>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <vector>

#include "platform/linux/menus/call_batch.h"
#include "platform/linux/menus/menu_source.h"

namespace rondora::menus {

/// The object that publishes the window's menus to the registrar of application menus; nothing when no registrar runs.
std::optional<BusObject> registeredMenu(BusConnection& bus, std::uint32_t window, double seconds);

/// The processes that publish menus to the registrar.
std::set<std::int32_t> registeredProcesses(BusConnection& bus, double seconds);

/// The menus of one object by com.canonical.dbusmenu.
class DbusMenuSource final : public MenuSource {
 public:
  /// The connection must outlive the object.
  DbusMenuSource(BusConnection& bus, BusObject object) : bus_(bus), object_(std::move(object)) {}

  MenuNodeRef menuBar() const;
  void expand(std::span<const MenuNodeRef> nodes, double seconds) override;
  bool press(MenuNode& node, double seconds) override;

 private:
  struct Node;

  BusMessage layoutCall(CallBatch& batch, std::int32_t id, std::int32_t depth) const;
  static std::shared_ptr<Node> readNode(sd_bus_message& reply, int depth);
  static void readProperties(sd_bus_message& reply, Node& node);

  BusConnection& bus_;
  BusObject object_;
  bool hasHung_ = false;
};

}  // namespace rondora::menus
