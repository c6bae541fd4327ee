#include "platform/linux/accessibility/served_bus.h"

#include <cstdarg>
#include <utility>

namespace rondora::accessibility {

std::unique_ptr<ServedBus> ServedBus::open(const std::string& address, const WatchReadable& watchReadable,
                                           std::function<void()> lost) {
  sd_bus* made = nullptr;
  if (sd_bus_new(&made) < 0) return nullptr;
  std::unique_ptr<ServedBus> bus(new ServedBus(address, made, std::move(lost)));
  const bool isOpen =
      sd_bus_set_address(made, address.c_str()) >= 0 && sd_bus_set_bus_client(made, 1) >= 0 && sd_bus_start(made) >= 0;
  if (!isOpen) return nullptr;
  bus->readable_ = watchReadable(sd_bus_get_fd(made), [self = bus.get()] { self->handleArrived(); });
  return bus;
}

void ServedBus::handleArrived() {
  int result = 1;
  while (result > 0) result = sd_bus_process(bus_.get(), nullptr);
  if (result >= 0 && sd_bus_is_open(bus_.get()) > 0) return;
  if (const auto lost = std::exchange(lost_, {})) lost();
}

void ServedBus::call(const char* service, const char* path, const char* interface, const char* method,
                     sd_bus_message_handler_t replied, void* self, const char* types, ...) const {
  sd_bus_message* message = nullptr;
  if (sd_bus_message_new_method_call(bus_.get(), &message, service, path, interface, method) < 0) return;
  std::va_list arguments;
  va_start(arguments, types);
  sd_bus_message_appendv(message, types, arguments);
  va_end(arguments);
  sd_bus_message_set_auto_start(message, 0);
  sd_bus_call_async(bus_.get(), nullptr, message, replied, self, 0);
  sd_bus_message_unref(message);
}

}  // namespace rondora::accessibility
