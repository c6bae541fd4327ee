#include "support/status_notifier_host.h"

#include <algorithm>
#include <stdexcept>

namespace rondora::live {
namespace {

constexpr const char* kWatcher = "org.kde.StatusNotifierWatcher";
constexpr const char* kWatcherPath = "/StatusNotifierWatcher";
constexpr const char* kBus = "org.freedesktop.DBus";
constexpr int kPatience = 5000;  // milliseconds
constexpr guint kDoNotQueue = 4;
constexpr guint kIsOwner = 1;

constexpr const char* kInterface = R"(<node><interface name="org.kde.StatusNotifierWatcher">
  <method name="RegisterStatusNotifierItem"><arg type="s" direction="in"/></method>
  <method name="RegisterStatusNotifierHost"><arg type="s" direction="in"/></method>
  <property name="RegisteredStatusNotifierItems" type="as" access="read"/>
  <property name="IsStatusNotifierHostRegistered" type="b" access="read"/>
  <property name="ProtocolVersion" type="i" access="read"/>
  <signal name="StatusNotifierItemRegistered"><arg type="s"/></signal>
  <signal name="StatusNotifierItemUnregistered"><arg type="s"/></signal>
  <signal name="StatusNotifierHostRegistered"/>
</interface></node>)";

using Variant = UniqueCPtr<GVariant, g_variant_unref>;

}  // namespace

struct StatusNotifierHost::Callbacks {
  static void called(GDBusConnection*, const gchar* sender, const gchar*, const gchar*, const gchar* method,
                     GVariant* arguments, GDBusMethodInvocation* invocation, gpointer self) {
    if (std::string(method) == "RegisterStatusNotifierItem") {
      const char* name = nullptr;
      g_variant_get(arguments, "(&s)", &name);
      auto& host = *static_cast<StatusNotifierHost*>(self);
      const std::lock_guard lock(host.mutex_);
      host.items_.push_back({sender, *name == '/' ? name : "/StatusNotifierItem"});
    }
    g_dbus_method_invocation_return_value(invocation, nullptr);
  }
  static GVariant* asked(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar* property, GError**,
                         gpointer) {
    const std::string name = property;
    if (name == "ProtocolVersion") return g_variant_new_int32(0);
    if (name == "IsStatusNotifierHostRegistered") return g_variant_new_boolean(TRUE);
    return g_variant_new_strv(nullptr, 0);
  }
  static void nameChanged(GDBusConnection*, const gchar*, const gchar*, const gchar*, const gchar*, GVariant* arguments,
                          gpointer self) {
    const char *name = nullptr, *before = nullptr, *after = nullptr;
    g_variant_get(arguments, "(&s&s&s)", &name, &before, &after);
    auto& host = *static_cast<StatusNotifierHost*>(self);
    const std::lock_guard lock(host.mutex_);
    if (*after == '\0') std::erase_if(host.items_, [&](const Item& item) { return item.owner == name; });
  }
};

StatusNotifierHost::StatusNotifierHost(const std::string& busAddress)
    : context_(g_main_context_new()), loop_(g_main_loop_new(context_.get(), FALSE)) {
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  bus_.reset(g_dbus_connection_new_for_address_sync(busAddress.c_str(), flags, nullptr, nullptr, nullptr));
  if (!bus_) throw std::runtime_error("no session bus for the panel");
  g_main_context_push_thread_default(context_.get());
  announce();
  g_main_context_pop_thread_default(context_.get());
  thread_ = std::thread([this] { g_main_loop_run(loop_.get()); });
}

StatusNotifierHost::~StatusNotifierHost() {
  // Queued behind the start of the loop, which must not come after its end.
  g_main_context_invoke(
      context_.get(),
      [](gpointer loop) -> gboolean {
        g_main_loop_quit(static_cast<GMainLoop*>(loop));
        return G_SOURCE_REMOVE;
      },
      loop_.get());
  thread_.join();
  g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr);
}

void StatusNotifierHost::announce() {
  const UniqueCPtr<GDBusNodeInfo, g_dbus_node_info_unref> node(g_dbus_node_info_new_for_xml(kInterface, nullptr));
  static constexpr GDBusInterfaceVTable kTable{&Callbacks::called, &Callbacks::asked, nullptr, {}};
  g_dbus_connection_register_object(bus_.get(), kWatcherPath, node->interfaces[0], &kTable, this, nullptr, nullptr);
  g_dbus_connection_signal_subscribe(bus_.get(), kBus, kBus, "NameOwnerChanged", nullptr, nullptr,
                                     G_DBUS_SIGNAL_FLAGS_NONE, &Callbacks::nameChanged, this, nullptr);
  const Variant reply(
      call(kBus, "/org/freedesktop/DBus", kBus, "RequestName", g_variant_new("(su)", kWatcher, kDoNotQueue)));
  guint result = 0;
  if (reply) g_variant_get(reply.get(), "(u)", &result);
  if (result != kIsOwner) throw std::runtime_error("another panel keeps the list of status items");
}

GVariant* StatusNotifierHost::call(const std::string& owner, const std::string& path, const char* interface,
                                   const char* method, GVariant* arguments) {
  return g_dbus_connection_call_sync(bus_.get(), owner.c_str(), path.c_str(), interface, method, arguments, nullptr,
                                     G_DBUS_CALL_FLAGS_NONE, kPatience, nullptr, nullptr);
}

std::size_t StatusNotifierHost::itemCount() {
  const std::lock_guard lock(mutex_);
  return items_.size();
}

/// The object that the last item's "Menu" property names.
std::optional<StatusNotifierHost::Item> StatusNotifierHost::menu() {
  Item item;
  {
    const std::lock_guard lock(mutex_);
    if (items_.empty()) return std::nullopt;
    item = items_.back();
  }
  const Variant reply(call(item.owner, item.path, "org.freedesktop.DBus.Properties", "Get",
                           g_variant_new("(ss)", "org.kde.StatusNotifierItem", "Menu")));
  if (!reply) return std::nullopt;
  GVariant* value = nullptr;
  g_variant_get(reply.get(), "(v)", &value);
  const Variant path(value);
  return Item{item.owner, g_variant_get_string(path.get(), nullptr)};
}

std::vector<StatusNotifierHost::MenuEntry> StatusNotifierHost::entriesOf(const Item& menu) {
  std::vector<MenuEntry> entries;
  const Variant reply(call(menu.owner, menu.path, "com.canonical.dbusmenu", "GetLayout",
                           g_variant_new("(ii@as)", 0, 1, g_variant_new_strv(nullptr, 0))));
  if (!reply) return entries;
  GVariantIter* children = nullptr;
  g_variant_get(reply.get(), "(u(i@a{sv}av))", nullptr, nullptr, nullptr, &children);
  const UniqueCPtr<GVariantIter, g_variant_iter_free> owned(children);
  for (GVariant* child = nullptr; (child = g_variant_iter_next_value(children)) != nullptr;) {
    const Variant boxed(child), entry(g_variant_get_variant(child));
    MenuEntry made;
    GVariant* properties = nullptr;
    g_variant_get(entry.get(), "(i@a{sv}@av)", &made.id, &properties, nullptr);
    const Variant ownedProperties(properties);
    const char* label = "";
    g_variant_lookup(properties, "label", "&s", &label);
    made.label = label;
    entries.push_back(std::move(made));
  }
  return entries;
}

std::vector<std::string> StatusNotifierHost::menuLabels() {
  std::vector<std::string> labels;
  if (const auto found = menu()) {
    for (const MenuEntry& entry : entriesOf(*found)) labels.push_back(entry.label);
  }
  return labels;
}

bool StatusNotifierHost::choose(const std::string& label) {
  const auto found = menu();
  if (!found) return false;
  for (const MenuEntry& entry : entriesOf(*found)) {
    if (entry.label != label) continue;
    const Variant reply(call(found->owner, found->path, "com.canonical.dbusmenu", "Event",
                             g_variant_new("(isvu)", entry.id, "clicked", g_variant_new_string(""), 0)));
    return reply != nullptr;
  }
  return false;
}

}  // namespace rondora::live
