#pragma once

#include <systemd/sd-bus.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

#include "base/observable.h"
#include "base/owned.h"

namespace rondora::accessibility {

/// A connection whose messages the event loop handles as they arrive; nothing ever waits for a reply. Main thread.
class ServedBus {
 public:
  using WatchReadable = std::function<Subscription(int descriptor, std::function<void()> readable)>;

  /// Null without a bus at the address. `lost` is called when the connection breaks, and may destroy the object.
  static std::unique_ptr<ServedBus> open(const std::string& address, const WatchReadable& watchReadable,
                                         std::function<void()> lost);

  sd_bus* get() const { return bus_.get(); }
  const std::string& address() const { return address_; }

  /// Sends a call that starts no service.
  void call(const char* service, const char* path, const char* interface, const char* method,
            sd_bus_message_handler_t replied, void* self, const char* types = "", ...) const;

 private:
  ServedBus(std::string address, sd_bus* bus, std::function<void()> lost)
      : address_(std::move(address)), bus_(bus), lost_(std::move(lost)) {}
  void handleArrived();

  std::string address_;
  UniqueCPtr<sd_bus, sd_bus_close_unref> bus_;
  std::function<void()> lost_;
  Subscription readable_;
};

}  // namespace rondora::accessibility
