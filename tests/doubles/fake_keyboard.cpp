#include "doubles/fake_keyboard.h"

#include <string_view>

#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

// By virtual key code, 0 to 50.
constexpr std::string_view kUsLayout = "asdfhgzxcv<bqweryt123465=97-80]ou[ip\rlj'k;\\,/nm.\t `";
static_assert(kUsLayout.size() == 51);

std::uint64_t modifierFlag(std::uint16_t keyCode) {
  if (keyCode == FakeKeyboard::kCommandKey) return event_flags::kCommand;
  if (keyCode == FakeKeyboard::kShiftKey) return event_flags::kShift;
  if (keyCode == FakeKeyboard::kOptionKey) return event_flags::kOption;
  return keyCode == FakeKeyboard::kControlKey ? event_flags::kControl : 0;
}

}  // namespace

template <class T>
Subscription FakeKeyboard::add(const Table<T>& table, T value) {
  const std::uint64_t id = ++lastId_;
  table->emplace(id, std::move(value));
  return Subscription([weak = std::weak_ptr(table), id] {
    if (const auto found = weak.lock()) found->erase(id);
  });
}

std::optional<Subscription> FakeKeyboard::registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                              EventHotKeyID id) {
  if (foreignOwners.contains({keyCode, carbonModifiers}) || isRegistered(keyCode, carbonModifiers)) return std::nullopt;
  return add(registrations_, Registration{keyCode, carbonModifiers, id});
}

Subscription FakeKeyboard::onModifiersMoved(std::function<void()> observer) {
  return modifiersMoved_.subscribe(std::move(observer));
}

Subscription FakeKeyboard::installEventHandler(HotkeyService::Handler handler) {
  return add(handlers_, std::move(handler));
}

Subscription FakeKeyboard::addLocalMonitor(std::uint32_t eventMask, EventMonitors::Handler handler) {
  return add(monitors_, Monitor{eventMask, std::move(handler)});
}

std::uint64_t FakeKeyboard::currentModifierFlags() const {
  std::uint64_t flags = 0;
  for (const std::uint16_t keyCode : held_) flags |= modifierFlag(keyCode);
  return flags;
}

KeyEvent FakeKeyboard::event(KeyEventType type, std::uint16_t keyCode) const {
  KeyEvent result;
  result.type = type;
  result.keyCode = keyCode;
  result.modifierFlags = currentModifierFlags();
  if (keyCode < kUsLayout.size()) result.charactersIgnoringModifiers = kUsLayout.substr(keyCode, 1);
  if ((result.modifierFlags & ~event_flags::kShift) == 0) result.characters = result.charactersIgnoringModifiers;
  return result;
}

void FakeKeyboard::deliverToMonitors(const KeyEvent& event) const {
  const std::uint32_t mask = event.type == KeyEventType::flagsChanged ? kFlagsChangedMask : kKeyDownAndKeyUpMask;
  const auto monitors = *monitors_;
  for (const auto& [id, monitor] : monitors) {
    if ((monitor.mask & mask) != 0 && monitors_->contains(id) && monitor.handler(event)) return;
  }
}

int FakeKeyboard::send(const HotKeyEvent* event) const {
  int status = -1;
  for (const auto& [id, handler] : *handlers_) status = handler(event);
  return status;
}

std::optional<EventHotKeyID> FakeKeyboard::registered(std::uint32_t keyCode, std::uint32_t carbonModifiers) const {
  for (const auto& [id, registration] : *registrations_) {
    if (registration.keyCode == keyCode && registration.carbonModifiers == carbonModifiers) return registration.id;
  }
  return std::nullopt;
}

void FakeKeyboard::press(std::uint16_t keyCode) {
  const KeyEvent before = event(KeyEventType::keyDown, keyCode);
  held_.insert(keyCode);
  owedReleases_.erase(keyCode);
  if (modifierFlag(keyCode) != 0) {
    if (overlayHoldsKeyboard_()) deliverToMonitors(event(KeyEventType::flagsChanged, keyCode));
    return;
  }
  const auto modifiers = static_cast<std::uint32_t>(CarbonModifiers::carbon(before.modifierFlags));
  const auto hotKey = registered(keyCode, modifiers);
  if (hotKey) owedReleases_[keyCode] = modifiers;
  if (overlayHoldsKeyboard_()) return deliverToMonitors(before);
  if (hotKey) sendHotKey(kEventHotKeyPressed, *hotKey);
}

void FakeKeyboard::release(std::uint16_t keyCode) {
  if (held_.erase(keyCode) == 0) return;
  const auto owed = owedReleases_.extract(keyCode);
  const bool isModifier = modifierFlag(keyCode) != 0;
  if (overlayHoldsKeyboard_()) {
    return deliverToMonitors(event(isModifier ? KeyEventType::flagsChanged : KeyEventType::keyUp, keyCode));
  }
  const auto hotKey = owed ? registered(keyCode, owed.mapped()) : std::nullopt;
  if (hotKey) sendHotKey(kEventHotKeyReleased, *hotKey);
}

void FakeKeyboard::repeat(std::uint16_t keyCode) {
  if (!held_.contains(keyCode) || !overlayHoldsKeyboard_()) return;
  KeyEvent repeated = event(KeyEventType::keyDown, keyCode);
  repeated.isRepeat = true;
  deliverToMonitors(repeated);
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
