#include "support/bus_service.h"

#include <stdexcept>
#include <utility>

namespace rondora::live {

BusService::BusService(const std::string& busAddress, const char* name, Answer answer) : answer_(std::move(answer)) {
  constexpr const char* kBus = "org.freedesktop.DBus";
  constexpr guint kDoNotQueue = 4, kIsOwner = 1;
  const auto flags = static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                                       G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION);
  bus_.reset(g_dbus_connection_new_for_address_sync(busAddress.c_str(), flags, nullptr, nullptr, nullptr));
  if (!bus_) throw std::runtime_error("no session bus for " + std::string(name));
  g_dbus_connection_add_filter(bus_.get(), &BusService::handle, this, nullptr);
  const UniqueCPtr<GVariant, g_variant_unref> reply(g_dbus_connection_call_sync(
      bus_.get(), kBus, "/org/freedesktop/DBus", kBus, "RequestName", g_variant_new("(su)", name, kDoNotQueue), nullptr,
      G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  guint result = 0;
  if (reply) g_variant_get(reply.get(), "(u)", &result);
  if (result != kIsOwner) throw std::runtime_error("name taken on the bus: " + std::string(name));
}

BusService::~BusService() { g_dbus_connection_close_sync(bus_.get(), nullptr, nullptr); }

GDBusMessage* BusService::handle(GDBusConnection* bus, GDBusMessage* message, gboolean isIncoming, gpointer self) {
  const bool isCall = g_dbus_message_get_message_type(message) == G_DBUS_MESSAGE_TYPE_METHOD_CALL;
  if (isIncoming == FALSE || !isCall) return message;
  GVariant* answer = static_cast<BusService*>(self)->answer_(
      g_dbus_message_get_sender(message), g_dbus_message_get_member(message), g_dbus_message_get_body(message));
  if (answer == nullptr) return message;
  const UniqueCPtr<GDBusMessage, g_object_unref> asked(message), reply(g_dbus_message_new_method_reply(message));
  g_dbus_message_set_body(reply.get(), answer);
  g_dbus_connection_send_message(bus, reply.get(), G_DBUS_SEND_MESSAGE_FLAGS_NONE, nullptr, nullptr);
  return nullptr;
}

}  // namespace rondora::live
