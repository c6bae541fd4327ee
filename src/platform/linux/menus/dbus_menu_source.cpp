#include "platform/linux/menus/dbus_menu_source.h"

#include <algorithm>
#include <utility>

#include "platform/linux/menus/command_call.h"
#include "platform/linux/menus/menu_text.h"

namespace rondora::menus {
namespace {

constexpr const char* kInterface = "com.canonical.dbusmenu";
constexpr int kWholeTree = -1;
/// Of menus within menus that one reply may hold.
constexpr int kMaxDepth = 16;

std::string readVariantText(sd_bus_message& reply) {
  const char* text = "";
  return sd_bus_message_read(&reply, "v", "s", &text) > 0 ? text : "";
}

bool readVariantBool(sd_bus_message& reply) {
  int value = 1;
  sd_bus_message_read(&reply, "v", "b", &value);
  return value != 0;
}

/// Of type aas: combinations, each with its modifiers before its key. The first one counts.
std::optional<MenuKey> readShortcut(sd_bus_message& reply) {
  std::vector<std::string> names;
  if (sd_bus_message_enter_container(&reply, 'v', "aas") <= 0) return std::nullopt;
  sd_bus_message_enter_container(&reply, 'a', "as");
  if (sd_bus_message_enter_container(&reply, 'a', "s") > 0) {
    for (std::string name = readText(reply); !name.empty(); name = readText(reply)) names.push_back(std::move(name));
    sd_bus_message_exit_container(&reply);
  }
  while (sd_bus_message_skip(&reply, "as") > 0) continue;
  sd_bus_message_exit_container(&reply);
  sd_bus_message_exit_container(&reply);
  MenuKeyParser parser;
  if (names.empty()) return std::nullopt;
  for (std::size_t i = 0; i + 1 < names.size(); ++i) {
    if (!parser.addModifier(names[i])) return std::nullopt;
  }
  return parser.keyNamed(names.back());
}

/// Does not start a registrar.
BusMessage registrarCall(const CallBatch& batch, const char* method) {
  BusMessage call = batch.makeCall({"com.canonical.AppMenu.Registrar", "/com/canonical/AppMenu/Registrar"},
                                   {"com.canonical.AppMenu.Registrar", method});
  if (call) sd_bus_message_set_auto_start(call.get(), 0);
  return call;
}

}  // namespace

struct DbusMenuSource::Node : MenuNode {
  std::int32_t id = 0;
  bool isShown = true;
};

std::optional<BusObject> registeredMenu(BusConnection& bus, std::uint32_t window, double seconds) {
  std::optional<BusObject> found;
  CallBatch batch(bus, seconds);
  BusMessage call = registrarCall(batch, "GetMenuForWindow");
  if (!call) return std::nullopt;
  sd_bus_message_append(call.get(), "u", window);
  batch.add(std::move(call), [&](sd_bus_message& reply) {
    const char* service = "";
    const char* path = "";
    if (sd_bus_message_read(&reply, "so", &service, &path) > 0 && *service != '\0') found = BusObject{service, path};
  });
  batch.run();
  return found;
}

std::set<std::int32_t> registeredProcesses(BusConnection& bus, double seconds) {
  std::set<std::int32_t> processes;
  CallBatch batch(bus, seconds);
  batch.add(registrarCall(batch, "GetMenus"), [&](sd_bus_message& reply) {
    std::set<std::string> services;
    sd_bus_message_enter_container(&reply, 'a', "(uso)");
    const char* service = "";
    while (sd_bus_message_read(&reply, "(uso)", nullptr, &service, nullptr) > 0) services.insert(service);
    for (const std::string& each : services) {
      requestProcess(batch, each, [&processes](std::int32_t process) { processes.insert(process); });
    }
  });
  batch.run();
  return processes;
}

MenuNodeRef DbusMenuSource::menuBar() const { return std::make_shared<Node>(); }

/// An application may fill a menu only when it is about to be shown.
void DbusMenuSource::expand(std::span<const MenuNodeRef> nodes, double seconds) {
  if (hasHung_) return;
  CallBatch batch(bus_, seconds);
  for (const MenuNodeRef& each : nodes) {
    auto& node = static_cast<Node&>(*each);
    batch.call(
        object_, {kInterface, "AboutToShow"}, [](sd_bus_message& /*reply*/) {}, "i", node.id);
    batch.add(layoutCall(batch, node.id, kWholeTree), [&node](sd_bus_message& reply) {
      sd_bus_message_skip(&reply, "u");  // the revision
      const auto read = readNode(reply, 0);
      if (read) node.items = read->items.value_or(std::vector<MenuNodeRef>());
    });
  }
  hasHung_ = !batch.run();
}

BusMessage DbusMenuSource::layoutCall(CallBatch& batch, std::int32_t id, std::int32_t depth) const {
  BusMessage call = batch.makeCall(object_, {kInterface, "GetLayout"});
  if (call) {
    sd_bus_message_append(call.get(), "iias", id, depth, 7, "type", "label", "visible", "enabled", "shortcut",
                          "children-display", "toggle-type");
  }
  return call;
}

/// Of type (ia{sv}av): the number of the item, its properties, the items below as variants of the same type.
std::shared_ptr<DbusMenuSource::Node> DbusMenuSource::readNode(sd_bus_message& reply, int depth) {
  if (depth > kMaxDepth || sd_bus_message_enter_container(&reply, 'r', "ia{sv}av") <= 0) return nullptr;
  auto node = std::make_shared<Node>();
  sd_bus_message_read_basic(&reply, 'i', &node->id);
  readProperties(reply, *node);
  std::vector<MenuNodeRef> items;
  sd_bus_message_enter_container(&reply, 'a', "v");
  while (sd_bus_message_enter_container(&reply, 'v', "(ia{sv}av)") > 0) {
    auto item = readNode(reply, depth + 1);
    if (!item) return nullptr;
    if (item->isShown && !item->title.empty() && items.size() < kMaxItems) items.push_back(std::move(item));
    sd_bus_message_exit_container(&reply);
  }
  sd_bus_message_exit_container(&reply);
  sd_bus_message_exit_container(&reply);
  if (!items.empty()) node->items = std::move(items);
  return node;
}

void DbusMenuSource::readProperties(sd_bus_message& reply, Node& node) {
  sd_bus_message_enter_container(&reply, 'a', "{sv}");
  while (sd_bus_message_enter_container(&reply, 'e', "sv") > 0) {
    const std::string name = readText(reply);
    if (name == "label") {
      node.title = titleOfLabel(readVariantText(reply));
    } else if (name == "enabled") {
      node.isEnabled = readVariantBool(reply);
    } else if (name == "visible") {
      node.isShown = node.isShown && readVariantBool(reply);
    } else if (name == "type") {
      node.isShown = node.isShown && readVariantText(reply) != "separator";
    } else if (name == "children-display") {
      node.hasSubmenu = readVariantText(reply) == "submenu";
    } else if (name == "shortcut") {
      node.key = readShortcut(reply);
    }
    if (sd_bus_message_at_end(&reply, 0) == 0) sd_bus_message_skip(&reply, "v");
    sd_bus_message_exit_container(&reply);
  }
  sd_bus_message_exit_container(&reply);
}

bool DbusMenuSource::press(MenuNode& node, double seconds) {
  if (!node.isEnabled) return false;
  const std::int32_t id = static_cast<Node&>(node).id;
  CallBatch batch(bus_, seconds);
  BusMessage event = batch.makeCall(object_, {kInterface, "Event"});
  if (!event) return false;
  sd_bus_message_append(event.get(), "isvu", id, "clicked", "i", 0, 0U);
  return sendCommand(batch, std::move(event), layoutCall(batch, id, 0), [](sd_bus_message& /*reply*/) { return true; });
}

}  // namespace rondora::menus
