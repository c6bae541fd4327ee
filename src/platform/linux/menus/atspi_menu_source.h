#pragma once

#include <memory>
#include <string>
#include <vector>

#include "platform/linux/menus/atspi_objects.h"
#include "platform/linux/menus/menu_source.h"

namespace rondora::menus {

/// The menus of one application on the accessibility bus (GTK 3, Qt and others).
class AtspiMenuSource final : public MenuSource {
 public:
  /// The connection must outlive the object.
  AtspiMenuSource(BusConnection& bus, std::string service) : bus_(bus), service_(std::move(service)) {}

  /// The node of a menu bar.
  MenuNodeRef menuBar(std::string path) const;

  /// GTK 4 shows the bus a menu bar with items, but without the menus behind them.
  bool holdsMenus(const MenuNodeRef& bar, const Deadline& deadline);

  void expand(std::span<const MenuNodeRef> nodes, double seconds) override;
  bool press(MenuNode& node, double seconds) override;

 private:
  struct Node;
  using NodeRef = std::shared_ptr<Node>;

  void readPaths(CallBatch& batch, const NodeRef& node);
  void readItems(CallBatch& batch, const NodeRef& node);
  NodeRef requestItem(CallBatch& batch, const std::string& path);
  static void takeItems(Node& node);

  BusConnection& bus_;
  std::string service_;
  bool hasHung_ = false;
};

}  // namespace rondora::menus
