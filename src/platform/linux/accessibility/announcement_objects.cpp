#include "platform/linux/accessibility/announcement_objects.h"

#include <utility>

#include "platform/linux/accessibility/at_spi_names.h"

namespace rondora::accessibility {
namespace {

struct Kind {
  std::uint32_t role;
  const char* roleName;
};

/// By level.
constexpr Kind kKinds[] = {{role::kApplication, "application"},
                           {role::kStatusBar, "status bar"},
                           {role::kNotification, "notification"},
                           {role::kLabel, "label"}};
constexpr const char* kFolder = "/org/a11y/atspi/accessible";

}  // namespace

/// The answers to what assistive technology asks of a node.
struct AnnouncementObjects::Replies {
  using Message = sd_bus_message;
  using Error = sd_bus_error;

  static const Node& node(void* found) { return *static_cast<const Node*>(found); }
  static const char* ownName(const Node& node) {
    const char* name = "";
    sd_bus_get_unique_name(node.objects->bus_.get(), &name);
    return name;
  }
  static bool hasChild(const Node& node) { return node.level + 1 < node.objects->levels(); }
  static int append(Message* reply, const Node& node, std::size_t level) {
    return sd_bus_message_append(reply, "(so)", ownName(node), node.objects->path(level).c_str());
  }
  template <class... Values>
  static int reply(Message* call, const char* types, Values... values) {
    return sd_bus_reply_method_return(call, types, values...);
  }

  static int name(sd_bus*, const char*, const char*, const char*, Message* reply, void* found, Error*) {
    const AnnouncementObjects& objects = *node(found).objects;
    const Level level = node(found).level;
    return sd_bus_message_append(reply, "s",
                                 level == application ? objects.applicationName_.c_str()
                                 : level == label     ? objects.text_.c_str()
                                                      : "");
  }
  static int noText(sd_bus*, const char*, const char*, const char*, Message* reply, void*, Error*) {
    return sd_bus_message_append(reply, "s", "");
  }
  static int parent(sd_bus*, const char*, const char*, const char*, Message* reply, void* found, Error*) {
    if (node(found).level == application) return sd_bus_message_append(reply, "(so)", kRegistry, kRootPath);
    return append(reply, node(found), node(found).level - 1);
  }
  static int childCount(sd_bus*, const char*, const char*, const char*, Message* reply, void* found, Error*) {
    return sd_bus_message_append(reply, "i", static_cast<int>(hasChild(node(found))));
  }

  static int childAtIndex(Message* call, void* found, Error*) {
    int index = 0;
    sd_bus_message_read(call, "i", &index);
    if (index != 0 || !hasChild(node(found))) return reply(call, "(so)", "", kNullPath);
    return reply(call, "(so)", ownName(node(found)), node(found).objects->path(node(found).level + 1).c_str());
  }
  static int children(Message* call, void* found, Error*) {
    if (!hasChild(node(found))) return reply(call, "a(so)", 0);
    return reply(call, "a(so)", 1, ownName(node(found)), node(found).objects->path(node(found).level + 1).c_str());
  }
  static int indexInParent(Message* call, void* found, Error*) {
    return reply(call, "i", node(found).level == application ? -1 : 0);
  }
  static int relations(Message* call, void*, Error*) { return reply(call, "a(ua(so))", 0); }
  static int role(Message* call, void* found, Error*) { return reply(call, "u", kKinds[node(found).level].role); }
  static int roleName(Message* call, void* found, Error*) {
    return reply(call, "s", kKinds[node(found).level].roleName);
  }
  static int states(Message* call, void*, Error*) {
    return reply(call, "au", 2, state::kEnabled | state::kSensitive | state::kShowing | state::kVisible, 0U);
  }
  static int attributes(Message* call, void*, Error*) { return reply(call, "a{ss}", 0); }
  static int root(Message* call, void* found, Error*) { return reply(call, "(so)", ownName(node(found)), kRootPath); }
  static int interfaces(Message* call, void* found, Error*) {
    if (node(found).level == application) return reply(call, "as", 2, kAccessible, kApplication);
    return reply(call, "as", 1, kAccessible);
  }

  static int toolkit(sd_bus*, const char*, const char*, const char*, Message* reply, void* found, Error*) {
    return sd_bus_message_append(reply, "s", node(found).objects->applicationName_.c_str());
  }
  static int version(sd_bus*, const char*, const char*, const char*, Message* reply, void*, Error*) {
    return sd_bus_message_append(reply, "s", "2.1");
  }
  static int id(sd_bus*, const char*, const char*, const char*, Message* reply, void* found, Error*) {
    return sd_bus_message_append(reply, "i", node(found).objects->applicationId_);
  }
  static int setId(sd_bus*, const char*, const char*, const char*, Message* value, void* found, Error*) {
    return sd_bus_message_read(value, "i", &node(found).objects->applicationId_);
  }

  static int noItems(Message* call, void*, Error*) { return reply(call, "a((so)(so)(so)iiassusau)", 0); }

  static const sd_bus_vtable kAccessibleTable[];
  static const sd_bus_vtable kApplicationTable[];
  static const sd_bus_vtable kCacheTable[];
};

const sd_bus_vtable AnnouncementObjects::Replies::kAccessibleTable[] = {
    SD_BUS_VTABLE_START(SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("Name", "s", name, 0, 0),
    SD_BUS_PROPERTY("Description", "s", noText, 0, 0),
    SD_BUS_PROPERTY("Parent", "(so)", parent, 0, 0),
    SD_BUS_PROPERTY("ChildCount", "i", childCount, 0, 0),
    SD_BUS_PROPERTY("Locale", "s", noText, 0, 0),
    SD_BUS_PROPERTY("AccessibleId", "s", noText, 0, 0),
    SD_BUS_METHOD("GetChildAtIndex", "i", "(so)", childAtIndex, 0),
    SD_BUS_METHOD("GetChildren", "", "a(so)", children, 0),
    SD_BUS_METHOD("GetIndexInParent", "", "i", indexInParent, 0),
    SD_BUS_METHOD("GetRelationSet", "", "a(ua(so))", relations, 0),
    SD_BUS_METHOD("GetRole", "", "u", role, 0),
    SD_BUS_METHOD("GetRoleName", "", "s", roleName, 0),
    SD_BUS_METHOD("GetLocalizedRoleName", "", "s", roleName, 0),
    SD_BUS_METHOD("GetState", "", "au", states, 0),
    SD_BUS_METHOD("GetAttributes", "", "a{ss}", attributes, 0),
    SD_BUS_METHOD("GetApplication", "", "(so)", root, 0),
    SD_BUS_METHOD("GetInterfaces", "", "as", interfaces, 0),
    SD_BUS_VTABLE_END};

const sd_bus_vtable AnnouncementObjects::Replies::kApplicationTable[] = {
    SD_BUS_VTABLE_START(SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_PROPERTY("ToolkitName", "s", toolkit, 0, 0),
    SD_BUS_PROPERTY("Version", "s", version, 0, 0),
    SD_BUS_PROPERTY("ToolkitVersion", "s", version, 0, 0),
    SD_BUS_PROPERTY("AtspiVersion", "s", version, 0, 0),
    SD_BUS_WRITABLE_PROPERTY("Id", "i", id, setId, 0, 0),
    SD_BUS_VTABLE_END};

/// What the client library wants of every application at first. It asks for objects that are not in the list.
const sd_bus_vtable AnnouncementObjects::Replies::kCacheTable[] = {
    SD_BUS_VTABLE_START(SD_BUS_VTABLE_UNPRIVILEGED),
    SD_BUS_METHOD("GetItems", "", "a((so)(so)(so)iiassusau)", noItems, 0), SD_BUS_VTABLE_END};

AnnouncementObjects::AnnouncementObjects(const ServedBus& bus, std::string applicationName)
    : bus_(bus), applicationName_(std::move(applicationName)) {
  sd_bus_add_fallback_vtable(bus_.get(), nullptr, kFolder, kAccessible, Replies::kAccessibleTable, find, this);
  sd_bus_add_object_vtable(bus_.get(), nullptr, kRootPath, kApplication, Replies::kApplicationTable, &nodes_[0]);
  sd_bus_add_object_vtable(bus_.get(), nullptr, kCachePath, kCache, Replies::kCacheTable, this);
}

int AnnouncementObjects::find(sd_bus* /*bus*/, const char* path, const char* /*interface*/, void* self, void** found,
                              sd_bus_error* /*error*/) {
  auto& objects = *static_cast<AnnouncementObjects*>(self);
  for (std::size_t level = 0; level < objects.levels(); ++level) {
    if (objects.path(level) != path) continue;
    *found = &objects.nodes_[level];
    return 1;
  }
  return 0;
}

std::string AnnouncementObjects::path(std::size_t level) const {
  if (level == application) return kRootPath;
  std::string path = std::string(kFolder) + "/status";
  if (level >= notification) path += "/" + std::to_string(number_);
  if (level == label) path += "/text";
  return path;
}

void AnnouncementObjects::show(std::string text) {
  clear();
  text_ = std::move(text);
  ++number_;
  if (!text_.empty()) emitShowing(true);
}

void AnnouncementObjects::clear() {
  if (std::exchange(text_, {}).empty()) return;
  emitShowing(false);
}

void AnnouncementObjects::emitShowing(bool isShown) const {
  sd_bus_emit_signal(bus_.get(), path(notification).c_str(), kObjectEvents, "StateChanged", "siiva{sv}", "showing",
                     static_cast<int>(isShown), 0, "i", 0, 0);
}

}  // namespace rondora::accessibility
