#include "platform/linux/menus/atspi_menu_source.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/unicode.h"
#include "platform/linux/menus/command_call.h"

namespace rondora::menus {

struct AtspiMenuSource::Node : MenuNode {
  explicit Node(std::string objectPath) : path(std::move(objectPath)) {}

  /// Between a submenu's item and its items: Qt has a popup menu without a name there.
  bool isNamelessPopup() const { return title.empty() && hasSubmenu; }
  /// All parts of the item arrived.
  bool isComplete() const { return missing == 0; }

  std::string path;
  AtspiStates states;
  int missing = 0;
  std::optional<std::vector<std::string>> paths;  // of the objects below
  std::vector<NodeRef> below;
};

namespace {

/// Applications nest at most one nameless popup.
constexpr int kMaxFolds = 2;

/// Qt names the mnemonic of an item without a key equivalent as its key.
bool isMnemonic(const MenuKey& key, const std::string& title) {
  constexpr std::int64_t kOptionAlone = 10;
  return key.modifiers == kOptionAlone && upperCased(title).find(key.character) != std::string::npos;
}

}  // namespace

MenuNodeRef AtspiMenuSource::menuBar(std::string path) const { return std::make_shared<Node>(std::move(path)); }

bool AtspiMenuSource::holdsMenus(const MenuNodeRef& bar, const Deadline& deadline) {
  expand(std::span(&bar, 1), deadline.secondsLeft());
  if (!bar->items) return false;
  bool isFound = false;
  CallBatch batch(bus_, deadline.secondsLeft());
  for (const MenuNodeRef& item : *bar->items) {
    batch.call({service_, static_cast<Node&>(*item).path}, kGetRole,
               [&](sd_bus_message& reply) { isFound = isFound || readRole(reply) == AtspiRole::menu; });
  }
  batch.run();
  return isFound;
}

void AtspiMenuSource::expand(std::span<const MenuNodeRef> nodes, double seconds) {
  if (hasHung_) return;
  CallBatch batch(bus_, seconds);
  std::vector<NodeRef> open;
  for (const MenuNodeRef& node : nodes) open.push_back(std::static_pointer_cast<Node>(node));
  for (int fold = 0; fold <= kMaxFolds && !open.empty() && !hasHung_; ++fold) {
    for (const NodeRef& node : open) readItems(batch, node);
    hasHung_ = !batch.run();
    std::vector<NodeRef> popups;
    for (const NodeRef& node : std::exchange(open, {})) {
      std::copy_if(node->below.begin(), node->below.end(), std::back_inserter(popups),
                   [](const NodeRef& item) { return item->isNamelessPopup(); });
    }
    open = std::move(popups);
  }
  for (const MenuNodeRef& node : nodes) takeItems(static_cast<Node&>(*node));
}

/// Asks for what is below the node, at once or when its paths are known.
void AtspiMenuSource::readItems(CallBatch& batch, const NodeRef& node) {
  if (!node->paths) return readPaths(batch, node);
  for (const std::string& path : *node->paths) node->below.push_back(requestItem(batch, path));
}

void AtspiMenuSource::readPaths(CallBatch& batch, const NodeRef& node) {
  batch.call({service_, node->path}, kGetChildren, [this, &batch, node](sd_bus_message& reply) {
    node->paths.emplace();
    for (const BusObject& child : readChildren(reply)) {
      if (child.service == service_) node->paths->push_back(child.path);
    }
    readItems(batch, node);
  });
}

AtspiMenuSource::NodeRef AtspiMenuSource::requestItem(CallBatch& batch, const std::string& path) {
  auto item = std::make_shared<Node>(path);
  const BusObject object{service_, path};
  const auto request = [&](const BusMethod& method, auto take, auto... arguments) {
    ++item->missing;
    batch.call(
        object, method,
        [item, take](sd_bus_message& reply) {
          --item->missing;
          take(*item, reply);
        },
        arguments...);
  };
  request(
      kGetProperty, [](Node& node, sd_bus_message& reply) { node.title = trimmed(readTextProperty(reply)); }, "ss",
      "org.a11y.atspi.Accessible", "Name");
  request(kGetState, [](Node& node, sd_bus_message& reply) {
    node.states = readStates(reply);
    node.isEnabled = node.states.isSensitive();
  });
  request(kGetChildren, [](Node& node, sd_bus_message& reply) {
    node.paths.emplace();
    for (BusObject& child : readChildren(reply)) node.paths->push_back(std::move(child.path));
    node.hasSubmenu = !node.paths->empty();
  });
  // Not every object has actions, so this reply may be missing.
  batch.call(
      object, kGetKeyBinding, [item](sd_bus_message& reply) { item->key = menuKeyOfBinding(readText(reply)); }, "i", 0);
  return item;
}

/// Makes the objects below the node its items. In a menu with any visible item the others are hidden; the items of a
/// closed Qt menu are all invisible.
void AtspiMenuSource::takeItems(Node& node) {
  std::vector<NodeRef> found;
  for (const NodeRef& item : std::exchange(node.below, {})) {
    if (!item->isNamelessPopup()) {
      found.push_back(item);
      continue;
    }
    if (item->below.size() < item->paths->size()) node.isCut = true;
    found.insert(found.end(), item->below.begin(), item->below.end());
  }
  const bool knowsHidden =
      std::any_of(found.begin(), found.end(), [](const NodeRef& item) { return item->states.isVisible(); });
  if (!node.paths) return;
  node.items.emplace();
  for (NodeRef& item : found) {
    const bool isHidden = knowsHidden && !item->states.isVisible();
    if (!item->isComplete()) node.isCut = true;
    if (item->key && isMnemonic(*item->key, item->title)) item->key.reset();
    if (item->isComplete() && !item->title.empty() && !isHidden) node.items->push_back(std::move(item));
  }
}

bool AtspiMenuSource::press(MenuNode& node, double seconds) {
  const auto& item = static_cast<Node&>(node);
  if (!item.isEnabled) return false;
  CallBatch batch(bus_, seconds);
  const BusObject object{service_, item.path};
  BusMessage action = batch.makeCall(object, kDoAction);
  if (action) sd_bus_message_append(action.get(), "i", 0);
  return sendCommand(batch, std::move(action), batch.makeCall(object, kGetRole), [](sd_bus_message& reply) {
    int isTaken = 0;
    return sd_bus_message_read_basic(&reply, 'b', &isTaken) > 0 && isTaken != 0;
  });
}

}  // namespace rondora::menus
