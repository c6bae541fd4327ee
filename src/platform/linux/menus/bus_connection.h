#pragma once

#include <systemd/sd-bus.h>

#include <functional>
#include <optional>
#include <string>

#include "base/owned.h"

namespace rondora::menus {

using BusMessage = UniqueCPtr<sd_bus_message, sd_bus_message_unref>;

/// A connection of the worker's own to a message bus. Opened at first use and again after the bus was restarted. One
/// thread.
class BusConnection {
 public:
  /// The bus's address; nothing while there is no such bus. Called for each connection that is opened.
  using Address = std::function<std::optional<std::string>()>;

  explicit BusConnection(Address address) : address_(std::move(address)) {}

  /// Handles what arrived since the last use first, so late replies of earlier calls are gone. Null without a bus.
  sd_bus* get();
  /// The next use opens a new connection.
  void close() { bus_.reset(); }

 private:
  void handleArrived();
  void open();

  Address address_;
  UniqueCPtr<sd_bus, sd_bus_close_unref> bus_;
};

/// The address of the session bus in this process's environment.
std::optional<std::string> sessionBusAddress();
/// Asks the session bus for the accessibility bus, which that starts if necessary. Blocks for 0.2 s at most.
std::optional<std::string> accessibilityBusAddress(BusConnection& session);

}  // namespace rondora::menus
