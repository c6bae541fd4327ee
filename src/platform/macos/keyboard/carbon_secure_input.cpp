#include "platform/macos/keyboard/carbon_secure_input.h"

#include <Carbon/Carbon.h>

namespace rondora::macos {

bool CarbonSecureInput::isEnabled() const { return IsSecureEventInputEnabled() != 0; }

}  // namespace rondora::macos
