#include "input/hotkeys/grabbed_key_router.h"

#include "model/carbon_modifiers.h"

namespace rondora {

bool GrabbedKeyRouter::offer(const KeyEvent& event) {
  if (event.keyCode == KeyEvent::kNoKeyCode) return false;
  switch (event.type) {
    case KeyEventType::keyDown:
      return offerKeyDown(event);
    case KeyEventType::keyUp:
      return manager_.reportRelease(event.keyCode);
    case KeyEventType::flagsChanged:
      return false;
  }
  return false;
}

bool GrabbedKeyRouter::offerKeyDown(const KeyEvent& event) {
  const auto* registration = manager_.liveRegistration(event.keyCode, CarbonModifiers::carbon(event.modifierFlags));
  if (event.isRepeat) return registration != nullptr || manager_.isHeld(event.keyCode);
  manager_.forgetHeld(event.keyCode);
  if (registration == nullptr) return false;
  if (overlay_.quickSelects(event) && overlay_.showsOneOf(registration->menuIndices)) return false;
  manager_.reportPress(*registration);
  return true;
}

}  // namespace rondora
