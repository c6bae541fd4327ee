#pragma once

#include <cstdint>
#include <map>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/linux/menus/call_batch.h"
#include "platform/linux/menus/menu_source.h"

namespace rondora::menus {

/// The menu bar that a window names by org.gtk.Menus, with its actions by org.gtk.Actions (GTK 3 and 4).
class GtkMenuSource final : public MenuSource {
 public:
  struct Objects {
    std::string service;
    std::string menuBar;
    /// The objects of the groups of actions by their prefix, such as "app" and "win".
    std::map<std::string, std::string> actions;
  };

  /// The connection must outlive the object.
  GtkMenuSource(BusConnection& bus, Objects objects);
  ~GtkMenuSource() override;

  MenuNodeRef menuBar() const;
  void expand(std::span<const MenuNodeRef> nodes, double seconds) override;
  bool press(MenuNode& node, double seconds) override;

 private:
  /// A menu is one of a group; groups are read as a whole.
  using MenuId = std::pair<std::uint32_t, std::uint32_t>;
  struct Entry;
  struct Node;
  /// By full names, such as "app.quit"; false for a disabled action.
  using Actions = std::map<std::string, bool>;

  void readActions(CallBatch& batch);
  void takeActions(const std::string& prefix, sd_bus_message& reply);
  void readGroup(CallBatch& batch, std::uint32_t group);
  void takeMenus(sd_bus_message& reply);
  static Entry readEntry(sd_bus_message& reply);
  static void readAttribute(sd_bus_message& reply, Entry& entry);
  /// Appends the items of the menu, those of its sections in their place; reads groups that are missing.
  void appendItems(CallBatch& batch, Node& node, MenuId menu, int depth);
  MenuNodeRef makeItem(const Entry& entry) const;
  bool isHidden(const Entry& entry) const;

  BusConnection& bus_;
  Objects objects_;
  std::map<MenuId, std::vector<Entry>> menus_;
  std::set<std::uint32_t> groups_;  // asked for
  std::set<std::uint32_t> readGroups_;
  Actions actions_;
  bool areActionsRead_ = false;
  bool hasHung_ = false;
};

}  // namespace rondora::menus
