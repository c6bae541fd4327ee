#include "doubles/fake_keyboard.h"

#include <string_view>

#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

// Indexed by virtual key code, 0 to 50.
constexpr std::string_view kUsLayout = "asdfhgzxcv<bqweryt123465=97-80]ou[ip\rlj'k;\\,/nm.\t `";
static_assert(kUsLayout.size() == 51);

std::uint64_t modifierFlag(std::uint16_t keyCode) {
  if (keyCode == FakeKeyboard::kCommandKey) return event_flags::kCommand;
  if (keyCode == FakeKeyboard::kShiftKey) return event_flags::kShift;
  if (keyCode == FakeKeyboard::kOptionKey) return event_flags::kOption;
  if (keyCode == FakeKeyboard::kFnKey) return event_flags::kFunction;
  return keyCode == FakeKeyboard::kControlKey ? event_flags::kControl : 0;
}

}  // namespace

std::optional<Subscription> FakeKeyboard::registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                              EventHotKeyID id) {
  if (foreignOwners.contains({keyCode, carbonModifiers}) || isRegistered(keyCode, carbonModifiers)) return std::nullopt;
  const std::uint64_t number = ++lastRegistration_;
  registrations_->emplace(number, Registration{keyCode, carbonModifiers, id});
  return Subscription([weak = std::weak_ptr(registrations_), number] {
    if (const auto registrations = weak.lock()) registrations->erase(number);
  });
}

Subscription FakeKeyboard::onModifiersMoved(std::function<void()> observer) {
  return modifiersMoved_.subscribe(std::move(observer));
}

Subscription FakeKeyboard::installEventHandler(HotkeyService::Handler handler) {
  return handlers_.subscribe(
      [handler = std::move(handler)](const HotKeyEvent* event, int& status) { status = handler(event); });
}

Subscription FakeKeyboard::addLocalMonitor(std::uint32_t eventMask, EventMonitors::Handler handler) {
  return monitors_.add([eventMask, handler = std::move(handler)](std::uint32_t mask, const KeyEvent& event) {
    return (eventMask & mask) != 0 && handler(event);
  });
}

std::uint64_t FakeKeyboard::currentModifierFlags() const {
  std::uint64_t flags = 0;
  for (const auto& [keyCode, held] : held_) flags |= modifierFlag(keyCode);
  return flags;
}

std::optional<Subscription> FakeKeyboard::take(RecordingKeyboard::Observer observer) {
  if (isHeldByOther) return std::nullopt;
  recording_ = std::move(observer);
  return Subscription([this] { recording_.reset(); });
}

KeyEvent FakeKeyboard::event(KeyEventType type, std::uint16_t keyCode) const {
  KeyEvent result;
  result.type = type;
  result.keyCode = keyCode;
  result.modifierFlags = currentModifierFlags() | latched_;
  if (keyCode < kUsLayout.size()) result.charactersIgnoringModifiers = kUsLayout.substr(keyCode, 1);
  if ((result.modifierFlags & ~event_flags::kShift) == 0) result.characters = result.charactersIgnoringModifiers;
  return result;
}

void FakeKeyboard::deliverToMonitors(const KeyEvent& event) const {
  constexpr std::uint32_t kKeyUpMask = kKeyDownAndKeyUpMask & ~kKeyDownMask;
  const std::uint32_t keyMask = event.type == KeyEventType::keyDown ? kKeyDownMask : kKeyUpMask;
  monitors_.offer(event.type == KeyEventType::flagsChanged ? kFlagsChangedMask : keyMask, event);
}

int FakeKeyboard::send(const HotKeyEvent* event) const {
  int status = -1;
  handlers_.send(event, status);
  return status;
}

std::optional<EventHotKeyID> FakeKeyboard::registered(std::uint32_t keyCode, std::uint32_t carbonModifiers) const {
  for (const auto& [id, registration] : *registrations_) {
    if (registration.keyCode == keyCode && registration.carbonModifiers == carbonModifiers) return registration.id;
  }
  return std::nullopt;
}

void FakeKeyboard::changeFlags(std::uint16_t keyCode) const {
  if (!recording_ && taps.isSwallowed(tap_events::kFlagsChanged, keyCode, currentModifierFlags())) return;
  if (goesToProgram()) deliverToMonitors(event(KeyEventType::flagsChanged, keyCode));
}

void FakeKeyboard::press(std::uint16_t keyCode) {
  const KeyEvent down = event(KeyEventType::keyDown, keyCode);
  const bool isForOverlay = overlayHoldsKeyboard_();
  HeldKey& held = held_[keyCode] = {};
  if (modifierFlag(keyCode) != 0) return changeFlags(keyCode);
  if (recording_) return deliverToMonitors(down);
  if (taps.isSwallowed(tap_events::kKeyDown, keyCode, down.modifierFlags)) {
    held.flagsInTap = down.modifierFlags;
    return;
  }
  const ModifierHold hold = std::exchange(latched_, 0) == 0 ? ModifierHold::held : ModifierHold::latched;
  const auto modifiers = static_cast<std::uint32_t>(CarbonModifiers::carbon(down.modifierFlags));
  const auto hotKey = registered(keyCode, modifiers);
  if (hotKey && !(isForOverlay && overlayRule_ && overlayRule_(down, *hotKey))) {
    held.hotKeyModifiers = modifiers;
    return sendHotKey({kEventHotKeyPressed, *hotKey, hold});
  }
  if (isForOverlay) deliverToMonitors(down);
}

void FakeKeyboard::latch(std::uint16_t keyCode) { latched_ |= modifierFlag(keyCode); }

void FakeKeyboard::release(std::uint16_t keyCode) {
  const auto found = held_.extract(keyCode);
  if (!found) return;
  if (modifierFlag(keyCode) != 0) return changeFlags(keyCode);
  if (recording_) return deliverToMonitors(event(KeyEventType::keyUp, keyCode));
  const HeldKey& held = found.mapped();
  if (taps.isSwallowed(tap_events::kKeyUp, keyCode, held.flagsInTap.value_or(currentModifierFlags()))) return;
  const auto hotKey = held.hotKeyModifiers ? registered(keyCode, *held.hotKeyModifiers) : std::nullopt;
  if (hotKey) return sendHotKey({kEventHotKeyReleased, *hotKey});
  if (overlayHoldsKeyboard_()) deliverToMonitors(event(KeyEventType::keyUp, keyCode));
}

void FakeKeyboard::repeat(std::uint16_t keyCode) {
  const auto held = held_.find(keyCode);
  if (held == held_.end()) return;
  if (taps.isSwallowed(tap_events::kKeyDown, keyCode, currentModifierFlags())) return;
  if (held->second.hotKeyModifiers || !overlayHoldsKeyboard_()) return;
  KeyEvent repeated = event(KeyEventType::keyDown, keyCode);
  repeated.isRepeat = true;
  const auto modifiers = static_cast<std::uint32_t>(CarbonModifiers::carbon(repeated.modifierFlags));
  if (!isRegistered(keyCode, modifiers)) deliverToMonitors(repeated);
}

void FakeKeyboard::tap(std::uint16_t keyCode) {
  press(keyCode);
  release(keyCode);
}

void FakeKeyboard::pressAll(std::initializer_list<std::uint16_t> keyCodes) {
  for (const std::uint16_t keyCode : keyCodes) press(keyCode);
}

void FakeKeyboard::releaseAll(std::initializer_list<std::uint16_t> keyCodes) {
  for (const std::uint16_t keyCode : keyCodes) release(keyCode);
}

}  // namespace rondora
