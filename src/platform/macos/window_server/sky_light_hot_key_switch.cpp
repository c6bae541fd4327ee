#include "platform/macos/window_server/sky_light_hot_key_switch.h"

#include "platform/macos/foundation/private_library.h"
#include "platform/macos/window_server/sky_light.h"

namespace rondora::macos {

SkyLightHotKeySwitch::SetEnabled SkyLightHotKeySwitch::function() {
  if (!function_) function_ = PrivateLibrary(kSkyLightPath).function<SetEnabled>("CGSSetSymbolicHotKeyEnabled");
  return *function_;
}

bool SkyLightHotKeySwitch::available() { return function() != nullptr; }

void SkyLightHotKeySwitch::setEnabled(std::int32_t id, bool isEnabled) {
  if (const SetEnabled set = function()) set(id, isEnabled);
}

}  // namespace rondora::macos
