#include "doubles/fake_keyboard.h"

#include <algorithm>
#include <array>

#include "model/carbon_modifiers.h"

namespace rondora {
namespace {

struct UsKey {
  std::string_view plain;
  std::string_view shifted;
};

// By virtual key code, 0 to 50.
constexpr std::array<UsKey, 51> kUsLayout = {{
    {"a", "A"},   {"s", "S"}, {"d", "D"}, {"f", "F"},   {"h", "H"}, {"g", "G"}, {"z", "Z"},  {"x", "X"}, {"c", "C"},
    {"v", "V"},   {"<", ">"}, {"b", "B"}, {"q", "Q"},   {"w", "W"}, {"e", "E"}, {"r", "R"},  {"y", "Y"}, {"t", "T"},
    {"1", "!"},   {"2", "@"}, {"3", "#"}, {"4", "$"},   {"6", "^"}, {"5", "%"}, {"=", "+"},  {"9", "("}, {"7", "&"},
    {"-", "_"},   {"8", "*"}, {"0", ")"}, {"]", "}"},   {"o", "O"}, {"u", "U"}, {"[", "{"},  {"i", "I"}, {"p", "P"},
    {"\r", "\r"}, {"l", "L"}, {"j", "J"}, {"'", "\""},  {"k", "K"}, {";", ":"}, {"\\", "|"}, {",", "<"}, {"/", "?"},
    {"n", "N"},   {"m", "M"}, {".", ">"}, {"\t", "\t"}, {" ", " "}, {"`", "~"},
}};

std::uint64_t modifierFlag(std::uint16_t keyCode) {
  switch (keyCode) {
    case 54:
    case 55:
      return event_flags::kCommand;
    case 56:
    case 60:
      return event_flags::kShift;
    case 58:
    case 61:
      return event_flags::kOption;
    case 59:
    case 62:
      return event_flags::kControl;
    case 63:
      return event_flags::kFunction;
    default:
      return 0;
  }
}

bool contains(const auto& table, std::uint64_t id) { return table.find(id) != table.end(); }

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
  const bool isShifted = (result.modifierFlags & event_flags::kShift) != 0;
  if (keyCode < kUsLayout.size()) {
    result.charactersIgnoringModifiers = isShifted ? kUsLayout[keyCode].shifted : kUsLayout[keyCode].plain;
  }
  if ((result.modifierFlags & ~event_flags::kShift) == 0) result.characters = result.charactersIgnoringModifiers;
  return result;
}

void FakeKeyboard::deliverToMonitors(const KeyEvent& event) const {
  const std::uint32_t mask = event.type == KeyEventType::flagsChanged ? kFlagsChangedMask : kKeyDownAndKeyUpMask;
  const auto monitors = *monitors_;
  for (const auto& [id, monitor] : monitors) {
    if ((monitor.mask & mask) != 0 && contains(*monitors_, id) && monitor.handler(event)) return;
  }
}

int FakeKeyboard::send(const HotKeyEvent* event) {
  int status = -1;
  const auto handlers = *handlers_;
  for (const auto& [id, handler] : handlers) {
    if (contains(*handlers_, id)) status = handler(event);
  }
  return status;
}

std::optional<EventHotKeyID> FakeKeyboard::registered(std::uint32_t keyCode, std::uint32_t carbonModifiers) const {
  for (const auto& [id, registration] : *registrations_) {
    if (registration.keyCode == keyCode && registration.carbonModifiers == carbonModifiers) return registration.id;
  }
  return std::nullopt;
}

void FakeKeyboard::deliverPress(std::uint16_t keyCode) {
  const auto found = owedReleases_.find(keyCode);
  if (found == owedReleases_.end()) return seenByApplications.push_back(keyCode);
  const HotKeyEvent pressed{kEventHotKeyPressed, *registered(keyCode, found->second)};
  send(&pressed);
}

void FakeKeyboard::deliverRelease(std::uint16_t keyCode) {
  const auto owed = owedReleases_.find(keyCode);
  if (owed == owedReleases_.end()) {
    seenByApplications.push_back(-keyCode - 1);
    return;
  }
  const auto hotKey = registered(keyCode, owed->second);
  owedReleases_.erase(owed);
  if (!hotKey) return;
  const HotKeyEvent released{kEventHotKeyReleased, *hotKey};
  send(&released);
}

void FakeKeyboard::press(std::uint16_t keyCode) {
  const KeyEvent before = event(KeyEventType::keyDown, keyCode);
  held_.insert(keyCode);
  const bool isModifier = modifierFlag(keyCode) != 0;
  const auto modifiers = static_cast<std::uint32_t>(CarbonModifiers::carbon(before.modifierFlags));
  owedReleases_.erase(keyCode);
  if (!isModifier && registered(keyCode, modifiers)) owedReleases_[keyCode] = modifiers;
  if (overlayHoldsKeyboard_())
    return deliverToMonitors(isModifier ? event(KeyEventType::flagsChanged, keyCode) : before);
  if (!isModifier) deliverPress(keyCode);
}

void FakeKeyboard::release(std::uint16_t keyCode) {
  if (held_.erase(keyCode) == 0) return;
  const bool isModifier = modifierFlag(keyCode) != 0;
  if (overlayHoldsKeyboard_()) {
    owedReleases_.erase(keyCode);
    return deliverToMonitors(event(isModifier ? KeyEventType::flagsChanged : KeyEventType::keyUp, keyCode));
  }
  if (!isModifier) deliverRelease(keyCode);
}

void FakeKeyboard::repeat(std::uint16_t keyCode) {
  if (!held_.contains(keyCode)) return;
  KeyEvent repeated = event(KeyEventType::keyDown, keyCode);
  repeated.isRepeat = true;
  if (overlayHoldsKeyboard_()) {
    deliverToMonitors(repeated);
  } else if (!owedReleases_.contains(keyCode)) {
    seenByApplications.push_back(keyCode);
  }
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
