#pragma once

#include <cstdint>
#include <string>
#include <vector>

#include "platform/linux/menus/call_batch.h"

namespace rondora::menus {

// Methods of the accessibility bus (at-spi2-core, xml/*.xml).
inline constexpr BusMethod kGetChildren{"org.a11y.atspi.Accessible", "GetChildren"};
inline constexpr BusMethod kGetRole{"org.a11y.atspi.Accessible", "GetRole"};
inline constexpr BusMethod kGetState{"org.a11y.atspi.Accessible", "GetState"};
inline constexpr BusMethod kGetKeyBinding{"org.a11y.atspi.Action", "GetKeyBinding"};
inline constexpr BusMethod kDoAction{"org.a11y.atspi.Action", "DoAction"};
inline constexpr BusMethod kGetProperty{"org.freedesktop.DBus.Properties", "Get"};

/// Numbers of AtspiRole.
enum class AtspiRole : std::uint32_t {
  invalid = 0,
  menu = 33,
  menuBar = 34,
};

/// Of the 64 states of AtspiStateType.
struct AtspiStates {
  std::uint32_t low = 0;

  bool isActive() const { return has(1); }
  bool isSensitive() const { return has(24); }
  bool isVisible() const { return has(30); }

 private:
  bool has(unsigned state) const { return (low >> state & 1) != 0; }
};

std::vector<BusObject> readChildren(sd_bus_message& reply);
AtspiRole readRole(sd_bus_message& reply);
AtspiStates readStates(sd_bus_message& reply);
/// The value of a text property.
std::string readTextProperty(sd_bus_message& reply);

/// Adds a call for the object's accessible name.
void requestName(CallBatch& batch, const BusObject& object, CallBatch::Handler handler);

}  // namespace rondora::menus
