#include "platform/linux/menus/bus_connection.h"

#include <cstdlib>

#include "platform/linux/menus/call_batch.h"

namespace rondora::menus {

sd_bus* BusConnection::get() {
  handleArrived();
  if (!bus_) open();
  return bus_.get();
}

void BusConnection::handleArrived() {
  constexpr int kMaxMessages = 4096;
  int result = 1;
  for (int i = 0; bus_ && result > 0 && i < kMaxMessages; ++i) result = sd_bus_process(bus_.get(), nullptr);
  if (bus_ && (result < 0 || sd_bus_is_open(bus_.get()) <= 0)) bus_.reset();
}

void BusConnection::open() {
  const auto address = address_();
  sd_bus* made = nullptr;
  if (!address || sd_bus_new(&made) < 0) return;
  bus_.reset(made);
  const bool isOpen =
      sd_bus_set_address(made, address->c_str()) >= 0 && sd_bus_set_bus_client(made, 1) >= 0 && sd_bus_start(made) >= 0;
  if (!isOpen) bus_.reset();
}

std::optional<std::string> sessionBusAddress() {
  if (const char* address = std::getenv("DBUS_SESSION_BUS_ADDRESS")) return address;
  if (const char* folder = std::getenv("XDG_RUNTIME_DIR")) return "unix:path=" + std::string(folder) + "/bus";
  return std::nullopt;
}

std::optional<std::string> accessibilityBusAddress(BusConnection& session) {
  std::optional<std::string> address;
  CallBatch batch(session, kMaxRequestSeconds);
  batch.call({"org.a11y.Bus", "/org/a11y/bus"}, {"org.a11y.Bus", "GetAddress"},
             [&](sd_bus_message& reply) { address = readText(reply); });
  batch.run();
  return address;
}

}  // namespace rondora::menus
