#include "platform/linux/x11/keyboard/x11_hotkey_service.h"

#include <algorithm>
#include <string_view>
#include <utility>

#include "base/trace.h"
#include "model/carbon_modifiers.h"
#include "platform/linux/x11/keyboard/key_codes.h"
#include "platform/linux/x11/keyboard/layout_switches.h"

namespace rondora::x11 {
namespace {

constexpr std::uint16_t kAllModifiers = 0xFF;

bool existsHere(const X11Connection& connection, xcb_keycode_t key) {
  const xcb_setup_t* setup = xcb_get_setup(connection.get());
  return key >= setup->min_keycode && key <= setup->max_keycode;
}

ModifierSet modifierSet(std::uint32_t carbonModifiers) {
  constexpr std::int64_t kBits[kModifierCount] = {carbon::kControl, carbon::kOption, carbon::kShift, carbon::kCommand};
  ModifierSet modifiers;
  for (std::size_t i = 0; i < kModifierCount; ++i) modifiers[i] = (carbonModifiers & kBits[i]) != 0;
  return modifiers;
}

/// The last of the five texts that `setxkbmap` and the server leave at the root window.
std::string keyboardOptions(const X11Connection& connection) {
  constexpr int kOptions = 4;
  const auto names = connection.property(connection.root(), connection.atom("_XKB_RULES_NAMES"), XCB_ATOM_STRING);
  std::string_view rest;
  if (names) rest = {reinterpret_cast<const char*>(names->data()), names->size()};
  for (int i = 0; i < kOptions; ++i) {
    const std::size_t end = rest.find('\0');
    if (end == rest.npos) return {};
    rest.remove_prefix(end + 1);
  }
  return std::string(rest.substr(0, rest.find('\0')));
}

}  // namespace

X11HotkeyService::X11HotkeyService(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys)
    : connection_(connection), keymap_(keymap), keyStream_(keys), grabbedMasks_(keymap.masks()) {
  keys_ = keys.consume(KeyConsumer::hotkeys, [this](const X11Key& key) { return handleKey(key); });
  keymapObserver_ = keymap.onChanged([this] { followKeymap(); });
}

X11HotkeyService::~X11HotkeyService() {
  for (const Registration& registration : registrations_) {
    if (registration.xModifiers) ungrab({registration.key, *registration.xModifiers});
  }
  connection_.flush();
}

std::optional<Subscription> X11HotkeyService::registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                                  EventHotKeyID id) {
  const auto key = xKeyCode(keyCode);
  const auto modifiers = keymap_.xModifiers(carbonModifiers);
  if (!key || !modifiers || !existsHere(connection_, *key) || keyStream_.isHeldByTap(*key)) return std::nullopt;
  const Combination combination{*key, *modifiers};
  if (!isNeeded(combination) && !grab(combination)) return std::nullopt;
  registrations_.push_back({++lastNumber_, *key, carbonModifiers, id, modifiers});
  return Subscription(weakSelf_.bind([number = lastNumber_](X11HotkeyService& self) { self.unregister(number); }));
}

std::optional<std::string> X11HotkeyService::optionAgainst(std::uint32_t carbonModifiers) const {
  const ModifierSet modifiers = modifierSet(carbonModifiers);
  if (!switchesLayout(keymap_.keymap(), modifiers)) return std::nullopt;
  return layoutOptionOf(keyboardOptions(connection_), modifiers);
}

Subscription X11HotkeyService::onModifiersMoved(std::function<void()> observer) {
  return modifiersMoved_.subscribe(std::move(observer));
}

Subscription X11HotkeyService::installEventHandler(Handler handler) {
  return handlers_.add([handler = std::move(handler)](const HotKeyEvent* event) {
    handler(event);
    return false;
  });
}

// All requests go out before the first reply is awaited: one round trip.
bool X11HotkeyService::grab(Combination combination) const {
  std::vector<xcb_void_cookie_t> cookies;
  for (const std::uint16_t locks : keymap_.masks().lockCombinations()) {
    cookies.push_back(xcb_grab_key_checked(connection_.get(), 0, connection_.root(),
                                           static_cast<std::uint16_t>(combination.modifiers | locks), combination.key,
                                           XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC));
  }
  bool isOurs = true;
  for (const xcb_void_cookie_t cookie : cookies) {
    const Reply<xcb_generic_error_t> error(xcb_request_check(connection_.get(), cookie));
    if (error) isOurs = false;
  }
  if (!isOurs) ungrab(combination);
  trace::line("grab: hotkey ", int{combination.key}, " modifiers ", combination.modifiers,
              isOurs ? " is ours" : " belongs to another client");
  return isOurs;
}

// The server ignores the request for a variant that belongs to another client.
void X11HotkeyService::ungrab(Combination combination) const {
  trace::line("grab: hotkey ", int{combination.key}, " modifiers ", combination.modifiers, " is released");
  for (const std::uint16_t locks : grabbedMasks_.lockCombinations()) {
    xcb_ungrab_key(connection_.get(), combination.key, connection_.root(),
                   static_cast<std::uint16_t>(combination.modifiers | locks));
  }
  connection_.flush();
}

void X11HotkeyService::unregister(std::uint64_t number) {
  const auto found = std::find_if(registrations_.begin(), registrations_.end(),
                                  [&](const Registration& registration) { return registration.number == number; });
  if (found == registrations_.end()) return;
  const Registration gone = *found;
  registrations_.erase(found);
  if (!gone.xModifiers) return;
  const Combination combination{gone.key, *gone.xModifiers};
  if (!isNeeded(combination)) ungrab(combination);
}

bool X11HotkeyService::isNeeded(Combination combination) const {
  return std::any_of(registrations_.begin(), registrations_.end(), [&](const Registration& registration) {
    return registration.key == combination.key && registration.xModifiers == combination.modifiers;
  });
}

bool X11HotkeyService::handleKey(const X11Key& key) {
  if (key.target == KeyTarget::ownWindow) return false;
  if (key.direction == KeyDirection::up) return handleRelease(key);
  if (!key.isRepeat) return handlePress(key);
  return key.taker == KeyConsumer::hotkeys || liveRegistration(key) != nullptr;
}

const X11HotkeyService::Registration* X11HotkeyService::liveRegistration(const X11Key& key) const {
  const auto held = static_cast<std::uint16_t>(key.state & kAllModifiers & ~grabbedMasks_.locks());
  const auto found = std::find_if(registrations_.begin(), registrations_.end(), [&](const Registration& registration) {
    return registration.key == key.code && registration.xModifiers == held;
  });
  return found == registrations_.end() ? nullptr : &*found;
}

bool X11HotkeyService::handlePress(const X11Key& key) {
  const Registration* live = liveRegistration(key);
  if (live == nullptr) return false;
  const bool mayYield = key.target == KeyTarget::overlay && overlayRule_;
  if (mayYield && overlayRule_(keymap_.keyEvent(KeyEventType::keyDown, key.code, key.state, false), live->id)) {
    return false;
  }
  const auto modifiers = live->xModifiers;
  const bool areHeld = allHeld(keymap_.heldEventFlags(), CarbonModifiers::eventFlags(live->carbonModifiers));
  const ModifierHold hold = areHeld ? ModifierHold::held : ModifierHold::latched;
  forEachRegistrationOf(key.code, [&](const Registration& registration) {
    if (registration.xModifiers == modifiers) send({kEventHotKeyPressed, registration.id, hold});
  });
  return true;
}

// The combination may have been registered again since the press.
bool X11HotkeyService::handleRelease(const X11Key& key) {
  if (key.taker != KeyConsumer::hotkeys) return false;
  bool isReported = false;
  forEachRegistrationOf(key.code, [&](const Registration& registration) {
    if (registration.carbonModifiers != CarbonModifiers::carbon(key.flagsAtPress)) return;
    isReported = true;
    send({kEventHotKeyReleased, registration.id});
  });
  return isReported;
}

// The visitor may register and unregister: iterate by number, and skip registrations made during the walk.
template <class Visitor>
void X11HotkeyService::forEachRegistrationOf(xcb_keycode_t key, Visitor visit) {
  const std::uint64_t last = lastNumber_;
  for (std::uint64_t number = 0; number < last;) {
    const auto next = std::find_if(registrations_.begin(), registrations_.end(), [&](const Registration& registration) {
      return registration.number > number && registration.key == key;
    });
    if (next == registrations_.end() || next->number > last) return;
    number = next->number;
    visit(*next);
  }
}

void X11HotkeyService::send(const HotKeyEvent& event) {
  trace::line("hotkey ", event.id.id, event.kind == kEventHotKeyPressed ? " pressed" : " released",
              event.modifiers == ModifierHold::latched ? ", modifiers latched" : "");
  handlers_.offer(&event);
}

// The grabs name physical keys and real modifiers, so a change of layout alone leaves them in force.
void X11HotkeyService::followKeymap() {
  if (keymap_.masks() == grabbedMasks_) return;
  for (const Registration& registration : registrations_) {
    if (registration.xModifiers) ungrab({registration.key, *registration.xModifiers});
  }
  grabbedMasks_ = keymap_.masks();
  for (Registration& registration : registrations_) {
    registration.xModifiers = keymap_.xModifiers(registration.carbonModifiers);
    if (registration.xModifiers && !grab({registration.key, *registration.xModifiers})) registration.xModifiers.reset();
  }
  modifiersMoved_.send();
}

}  // namespace rondora::x11
