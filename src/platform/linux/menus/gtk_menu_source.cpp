#include "platform/linux/menus/gtk_menu_source.h"

#include <algorithm>
#include <string_view>

#include "platform/linux/menus/command_call.h"
#include "platform/linux/menus/menu_text.h"

namespace rondora::menus {
namespace {

constexpr BusMethod kStart{"org.gtk.Menus", "Start"};
constexpr BusMethod kEnd{"org.gtk.Menus", "End"};
constexpr BusMethod kDescribeAll{"org.gtk.Actions", "DescribeAll"};
constexpr BusMethod kList{"org.gtk.Actions", "List"};
constexpr BusMethod kActivate{"org.gtk.Actions", "Activate"};
/// Sections within sections, and groups that name further groups.
constexpr int kMaxDepth = 8;

/// A value of the variant that is next in the message.
std::string readVariantText(sd_bus_message& message) {
  const char* text = "";
  return sd_bus_message_read(&message, "v", "s", &text) > 0 ? text : "";
}

void appendGroups(sd_bus_message* message, const std::vector<std::uint32_t>& groups) {
  sd_bus_message_append_array(message, 'u', groups.data(), groups.size() * sizeof(std::uint32_t));
}

}  // namespace

struct GtkMenuSource::Entry {
  std::string label;
  std::string action;
  std::string accelerator;
  std::string hiddenWhen;
  /// The argument of the action, as it came.
  std::shared_ptr<sd_bus_message> target;
  std::optional<MenuId> section;
  std::optional<MenuId> submenu;
};

struct GtkMenuSource::Node : MenuNode {
  std::optional<MenuId> menu;
  std::string action;
  std::shared_ptr<sd_bus_message> target;
};

GtkMenuSource::GtkMenuSource(BusConnection& bus, Objects objects) : bus_(bus), objects_(std::move(objects)) {}

/// Ends the application's announcements of changes of what was read.
GtkMenuSource::~GtkMenuSource() {
  if (groups_.empty()) return;
  const BusMessage end = CallBatch(bus_, kMaxRequestSeconds).makeCall({objects_.service, objects_.menuBar}, kEnd);
  if (!end) return;
  appendGroups(end.get(), {groups_.begin(), groups_.end()});
  sd_bus_message_set_expect_reply(end.get(), 0);
  sd_bus_send(nullptr, end.get(), nullptr);
}

MenuNodeRef GtkMenuSource::menuBar() const {
  auto bar = std::make_shared<Node>();
  bar->menu = MenuId{0, 0};
  return bar;
}

void GtkMenuSource::expand(std::span<const MenuNodeRef> nodes, double seconds) {
  if (hasHung_) return;
  CallBatch batch(bus_, seconds);
  if (!areActionsRead_) readActions(batch);
  std::size_t known = 0;
  for (int round = 0; round < kMaxDepth && !hasHung_; ++round) {
    for (const MenuNodeRef& each : nodes) {
      auto& node = static_cast<Node&>(*each);
      node.items.emplace();
      node.isCut = false;
      if (node.menu) appendItems(batch, node, *node.menu, 0);
    }
    if (groups_.size() == known) break;
    known = groups_.size();
    hasHung_ = !batch.run();
  }
}

void GtkMenuSource::readActions(CallBatch& batch) {
  areActionsRead_ = true;
  for (const auto& [prefix, path] : objects_.actions) {
    batch.call({objects_.service, path}, kDescribeAll,
               [this, &prefix = prefix](sd_bus_message& reply) { takeActions(prefix, reply); });
  }
}

/// Of type a{s(bgav)}: the name, whether it is enabled, the type of its argument, its state.
void GtkMenuSource::takeActions(const std::string& prefix, sd_bus_message& reply) {
  if (sd_bus_message_enter_container(&reply, 'a', "{s(bgav)}") <= 0) return;
  while (sd_bus_message_enter_container(&reply, 'e', "s(bgav)") > 0) {
    std::string name = prefix + ".";
    name += readText(reply);
    int isEnabled = 0;
    sd_bus_message_enter_container(&reply, 'r', "bgav");
    sd_bus_message_read_basic(&reply, 'b', &isEnabled);
    sd_bus_message_skip(&reply, "gav");
    sd_bus_message_exit_container(&reply);
    sd_bus_message_exit_container(&reply);
    actions_[name] = isEnabled != 0;
  }
}

void GtkMenuSource::readGroup(CallBatch& batch, std::uint32_t group) {
  if (!groups_.insert(group).second) return;
  BusMessage start = batch.makeCall({objects_.service, objects_.menuBar}, kStart);
  if (start) appendGroups(start.get(), {group});
  batch.add(std::move(start), [this, group](sd_bus_message& reply) {
    readGroups_.insert(group);
    takeMenus(reply);
  });
}

/// Of type a(uuaa{sv}): the number of the group, that of the menu, its items.
void GtkMenuSource::takeMenus(sd_bus_message& reply) {
  if (sd_bus_message_enter_container(&reply, 'a', "(uuaa{sv})") <= 0) return;
  while (sd_bus_message_enter_container(&reply, 'r', "uuaa{sv}") > 0) {
    MenuId id;
    sd_bus_message_read(&reply, "uu", &id.first, &id.second);
    std::vector<Entry>& entries = menus_[id];
    sd_bus_message_enter_container(&reply, 'a', "a{sv}");
    while (sd_bus_message_enter_container(&reply, 'a', "{sv}") > 0) {
      Entry entry = readEntry(reply);
      if (entries.size() < kMaxItems) entries.push_back(std::move(entry));
      sd_bus_message_exit_container(&reply);
    }
    sd_bus_message_exit_container(&reply);
    sd_bus_message_exit_container(&reply);
  }
}

GtkMenuSource::Entry GtkMenuSource::readEntry(sd_bus_message& reply) {
  Entry entry;
  while (sd_bus_message_enter_container(&reply, 'e', "sv") > 0) {
    readAttribute(reply, entry);
    sd_bus_message_exit_container(&reply);
  }
  return entry;
}

void GtkMenuSource::readAttribute(sd_bus_message& reply, Entry& entry) {
  const std::string name = readText(reply);
  const std::pair<std::string_view, std::string*> texts[] = {{"label", &entry.label},
                                                             {"action", &entry.action},
                                                             {"accel", &entry.accelerator},
                                                             {"hidden-when", &entry.hiddenWhen}};
  for (const auto& [attribute, text] : texts) {
    if (name == attribute) *text = readVariantText(reply);
  }
  const std::pair<std::string_view, std::optional<MenuId>*> links[] = {{":section", &entry.section},
                                                                       {":submenu", &entry.submenu}};
  for (const auto& [attribute, link] : links) {
    MenuId id;
    if (name == attribute && sd_bus_message_read(&reply, "v", "(uu)", &id.first, &id.second) > 0) *link = id;
  }
  if (name == "target") {
    sd_bus_message* copy = nullptr;
    sd_bus_message_new(sd_bus_message_get_bus(&reply), &copy, SD_BUS_MESSAGE_METHOD_CALL);
    entry.target.reset(copy, sd_bus_message_unref);
    sd_bus_message_copy(copy, &reply, 0);
    sd_bus_message_seal(copy, 1, 0);
  }
  if (sd_bus_message_at_end(&reply, 0) == 0) sd_bus_message_skip(&reply, "v");
}

void GtkMenuSource::appendItems(CallBatch& batch, Node& node, MenuId menu, int depth) {
  readGroup(batch, menu.first);
  const auto entries = menus_.find(menu);
  if (depth > kMaxDepth || readGroups_.count(menu.first) == 0) node.isCut = true;
  if (entries == menus_.end() || depth > kMaxDepth) return;  // an empty menu is not among its group's
  for (const Entry& entry : entries->second) {
    if (node.items->size() >= kMaxItems) return;
    if (entry.section) appendItems(batch, node, *entry.section, depth + 1);
    if (entry.section || entry.label.empty() || isHidden(entry)) continue;
    node.items->push_back(makeItem(entry));
  }
}

MenuNodeRef GtkMenuSource::makeItem(const Entry& entry) const {
  auto item = std::make_shared<Node>();
  item->title = titleOfLabel(entry.label);
  item->key = menuKeyOfAccelerator(entry.accelerator);
  item->menu = entry.submenu;
  item->hasSubmenu = entry.submenu.has_value();
  item->action = entry.action;
  item->target = entry.target;
  const auto action = actions_.find(entry.action);
  item->isEnabled = item->hasSubmenu || (action != actions_.end() && action->second);
  return item;
}

bool GtkMenuSource::isHidden(const Entry& entry) const {
  const auto action = actions_.find(entry.action);
  if (entry.hiddenWhen == "action-missing") return action == actions_.end();
  return entry.hiddenWhen == "action-disabled" && (action == actions_.end() || !action->second);
}

bool GtkMenuSource::press(MenuNode& node, double seconds) {
  const auto& item = static_cast<Node&>(node);
  const std::size_t dot = item.action.find('.');
  const auto group = objects_.actions.find(item.action.substr(0, dot));
  if (!item.isEnabled || dot == std::string::npos || group == objects_.actions.end()) return false;
  CallBatch batch(bus_, seconds);
  const BusObject object{objects_.service, group->second};
  BusMessage activate = batch.makeCall(object, kActivate);
  if (!activate) return false;
  sd_bus_message_append(activate.get(), "s", item.action.c_str() + dot + 1);
  sd_bus_message_open_container(activate.get(), 'a', "v");
  if (item.target) {
    sd_bus_message_rewind(item.target.get(), 1);
    sd_bus_message_copy(activate.get(), item.target.get(), 0);
  }
  sd_bus_message_close_container(activate.get());
  sd_bus_message_append(activate.get(), "a{sv}", 0);
  return sendCommand(batch, std::move(activate), batch.makeCall(object, kList),
                     [](sd_bus_message& /*reply*/) { return true; });
}

}  // namespace rondora::menus
