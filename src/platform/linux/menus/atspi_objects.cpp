#include "platform/linux/menus/atspi_objects.h"

#include "platform/linux/menus/menu_source.h"

namespace rondora::menus {

std::vector<BusObject> readChildren(sd_bus_message& reply) {
  std::vector<BusObject> children;
  const char* service = nullptr;
  const char* path = nullptr;
  if (sd_bus_message_enter_container(&reply, 'a', "(so)") <= 0) return children;
  while (children.size() < kMaxItems && sd_bus_message_read(&reply, "(so)", &service, &path) > 0) {
    children.push_back({service, path});
  }
  return children;
}

AtspiRole readRole(sd_bus_message& reply) {
  std::uint32_t role = 0;
  sd_bus_message_read_basic(&reply, 'u', &role);
  return static_cast<AtspiRole>(role);
}

AtspiStates readStates(sd_bus_message& reply) {
  const void* words = nullptr;
  std::size_t size = 0;
  const int result = sd_bus_message_read_array(&reply, 'u', &words, &size);
  if (result <= 0 || size < sizeof(std::uint32_t)) return {};
  return {*static_cast<const std::uint32_t*>(words)};
}

std::string readTextProperty(sd_bus_message& reply) {
  return sd_bus_message_enter_container(&reply, 'v', "s") > 0 ? readText(reply) : "";
}

void requestName(CallBatch& batch, const BusObject& object, CallBatch::Handler handler) {
  batch.call(object, kGetProperty, std::move(handler), "ss", "org.a11y.atspi.Accessible", "Name");
}

}  // namespace rondora::menus
