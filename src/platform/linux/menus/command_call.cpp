#include "platform/linux/menus/command_call.h"

#include <string>
#include <utility>

namespace rondora::menus {

namespace {

bool hasEnded(BusConnection& bus, const std::string& service) {
  bool isThere = true;
  CallBatch batch(bus, kMaxRequestSeconds);
  const auto take = [&](sd_bus_message& reply) {
    int hasOwner = 1;
    if (sd_bus_message_read_basic(&reply, 'b', &hasOwner) > 0) isThere = hasOwner != 0;
  };
  batch.call(kBusObject, {kBusInterface, "NameHasOwner"}, take, "s", service.c_str());
  batch.run();
  return !isThere;
}

}  // namespace

bool sendCommand(CallBatch& batch, BusMessage command, BusMessage harmless,
                 std::function<bool(sd_bus_message& reply)> isTaken) {
  if (!command || !harmless) return false;
  const std::string service = sd_bus_message_get_destination(command.get());
  bool wasTaken = false;
  bool isAlive = false;
  batch.add(std::move(command), [&](sd_bus_message& reply) { wasTaken = isTaken(reply); });
  batch.add(std::move(harmless), [&](sd_bus_message& /*reply*/) { isAlive = true; });
  if (batch.run()) return wasTaken;
  return wasTaken || isAlive || hasEnded(batch.connection(), service);
}

}  // namespace rondora::menus
