#include "platform/linux/x11/keyboard/x11_keymap.h"

#include <xkbcommon/xkbcommon-keysyms.h>
#include <xkbcommon/xkbcommon-x11.h>

#include <array>
#include <utility>

#include "model/carbon_modifiers.h"
#include "platform/linux/x11/connection/xcb_xkb.h"
#include "platform/linux/x11/keyboard/key_codes.h"

namespace rondora::x11 {
namespace {

/// The fields with which all events of the keyboard extension begin.
struct XkbEventHeader {
  std::uint8_t responseType;
  std::uint8_t xkbType;
};

constexpr std::uint32_t kRealModifiers = 0xFF;

/// Core events carry the group in bits 13 and 14 of their state.
constexpr xkb_layout_index_t groupOf(std::uint16_t state) { return (state >> 13) & 3; }

constexpr std::uint16_t maskOf(std::size_t modifier) { return static_cast<std::uint16_t>(1U << modifier); }

}  // namespace

std::vector<std::uint16_t> ModifierMasks::lockCombinations() const {
  std::vector<std::uint16_t> combinations = {0};
  for (const std::uint16_t lock : {capsLock, numLock, scrollLock}) {
    if (lock == 0) continue;
    const std::size_t count = combinations.size();
    for (std::size_t i = 0; i < count; ++i) combinations.push_back(static_cast<std::uint16_t>(combinations[i] | lock));
  }
  return combinations;
}

X11Keymap::X11Keymap(X11Connection& connection, MainQueue& mainQueue)
    : connection_(connection), mainQueue_(mainQueue), context_(xkb_context_new(XKB_CONTEXT_NO_FLAGS)) {
  xkb_x11_setup_xkb_extension(connection.get(), XKB_X11_MIN_MAJOR_XKB_VERSION, XKB_X11_MIN_MINOR_XKB_VERSION,
                              XKB_X11_SETUP_XKB_EXTENSION_NO_FLAGS, nullptr, nullptr, &firstEvent_, nullptr);
  deviceId_ = xkb_x11_get_core_keyboard_device_id(connection.get());
  setClientFlags();
  selectEvents();
  readHeldModifiers();
  refresh();
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

// GrabsUseXKBState and LookupStateWhenGrabbed put the group into the state of grabbed events; the toolkit sets both
// too.
void X11Keymap::setClientFlags() const {
  constexpr std::uint32_t kFlags = XCB_XKB_PER_CLIENT_FLAG_DETECTABLE_AUTO_REPEAT |
                                   XCB_XKB_PER_CLIENT_FLAG_GRABS_USE_XKB_STATE |
                                   XCB_XKB_PER_CLIENT_FLAG_LOOKUP_STATE_WHEN_GRABBED;
  const auto cookie = xcb_xkb_per_client_flags(connection_.get(), XCB_XKB_ID_USE_CORE_KBD, kFlags, kFlags, 0, 0, 0);
  const Reply<xcb_xkb_per_client_flags_reply_t> reply(
      xcb_xkb_per_client_flags_reply(connection_.get(), cookie, nullptr));
}

// Adds to the toolkit's selection.
void X11Keymap::selectEvents() const {
  constexpr std::uint16_t kMapParts = XCB_XKB_MAP_PART_KEY_TYPES | XCB_XKB_MAP_PART_KEY_SYMS |
                                      XCB_XKB_MAP_PART_MODIFIER_MAP | XCB_XKB_MAP_PART_VIRTUAL_MODS |
                                      XCB_XKB_MAP_PART_VIRTUAL_MOD_MAP;
  xcb_xkb_select_events_details_t details{};
  details.affectNewKeyboard = details.newKeyboardDetails = XCB_XKB_NKN_DETAIL_KEYCODES;
  details.affectState = details.stateDetails = XCB_XKB_STATE_PART_MODIFIER_BASE;
  xcb_xkb_select_events_aux(
      connection_.get(), XCB_XKB_ID_USE_CORE_KBD,
      XCB_XKB_EVENT_TYPE_NEW_KEYBOARD_NOTIFY | XCB_XKB_EVENT_TYPE_MAP_NOTIFY | XCB_XKB_EVENT_TYPE_STATE_NOTIFY, 0, 0,
      kMapParts, kMapParts, &details);
}

// Once: afterwards events report the changes.
void X11Keymap::readHeldModifiers() {
  const auto cookie = xcb_xkb_get_state(connection_.get(), XCB_XKB_ID_USE_CORE_KBD);
  const Reply<xcb_xkb_get_state_reply_t> reply(xcb_xkb_get_state_reply(connection_.get(), cookie, nullptr));
  heldModifiers_ = reply ? reply->baseMods : std::uint8_t{0};
}

// Consumes no event: the toolkit follows the keyboard too.
bool X11Keymap::handleEvent(const xcb_generic_event_t& event) {
  if (event.response_type == XCB_MAPPING_NOTIFY) {
    if (reinterpret_cast<const xcb_mapping_notify_event_t&>(event).request != XCB_MAPPING_POINTER) markStale();
    return false;
  }
  if (event.response_type != firstEvent_) return false;
  switch (reinterpret_cast<const XkbEventHeader&>(event).xkbType) {
    case XCB_XKB_NEW_KEYBOARD_NOTIFY:
    case XCB_XKB_MAP_NOTIFY:
      markStale();
      break;
    case XCB_XKB_STATE_NOTIFY: {
      const auto& state = reinterpret_cast<const xcb_xkb_state_notify_event_t&>(event);
      if ((state.changed & XCB_XKB_STATE_PART_MODIFIER_BASE) == 0) break;
      heldModifiers_ = state.baseMods;
      heldModifiersChanged_.offer(state.baseMods, state.keycode);
      break;
    }
    default:
      break;
  }
  return false;
}

void X11Keymap::setFnHeld(bool isHeld, xcb_keycode_t key) {
  if (std::exchange(isFnHeld_, isHeld) != isHeld) heldModifiersChanged_.offer(heldModifiers_, key);
}

// A change of layout arrives as a burst of events: read the mapping once, after it.
void X11Keymap::markStale() {
  if (std::exchange(isStale_, true)) return;
  mainQueue_.async(weakSelf_.bind([](X11Keymap& self) { self.refreshIfStale(); }));
}

void X11Keymap::refreshIfStale() {
  if (!isStale_) return;
  refresh();
  changed_.send();
}

void X11Keymap::refresh() {
  isStale_ = false;
  keymap_.reset(
      xkb_x11_keymap_new_from_device(context_.get(), connection_.get(), deviceId_, XKB_KEYMAP_COMPILE_NO_FLAGS));
  state_.reset(keymap_ ? xkb_state_new(keymap_.get()) : nullptr);
  readModifiers();
}

void X11Keymap::readModifiers() {
  masks_ = {};
  modifierKeys_.reset();
  const auto cookie = xcb_get_modifier_mapping(connection_.get());
  const Reply<xcb_get_modifier_mapping_reply_t> reply(
      xcb_get_modifier_mapping_reply(connection_.get(), cookie, nullptr));
  if (!reply) return;
  const xcb_keycode_t* keys = xcb_get_modifier_mapping_keycodes(reply.get());
  const std::size_t width = reply->keycodes_per_modifier;
  for (std::size_t i = 0; i < 8 * width; ++i) {
    if (keys[i] != 0) noteModifierKey(i / width, keys[i]);
  }
  noteLevelKeys();
}

// Some layouts give AltGr an effect of its own instead of a place in the modifier mapping.
void X11Keymap::noteLevelKeys() {
  if (!keymap_) return;
  for (xkb_keycode_t key = xkb_keymap_min_keycode(keymap_.get()); key <= xkb_keymap_max_keycode(keymap_.get()); ++key) {
    const auto code = static_cast<xcb_keycode_t>(key);
    if (code == key && (hasKeysym(code, XKB_KEY_ISO_Level3_Shift, XKB_KEY_ISO_Level5_Shift) ||
                        hasKeysym(code, XKB_KEY_Mode_switch, XKB_KEY_ISO_Level3_Latch))) {
      modifierKeys_.set(code);
    }
  }
}

void X11Keymap::noteModifierKey(std::size_t modifier, xcb_keycode_t key) {
  modifierKeys_.set(key);
  if (modifier < XCB_MAP_INDEX_1) return;  // Shift, Lock and Control are fixed
  const auto note = [&](std::uint16_t& mask, xkb_keysym_t first, xkb_keysym_t second) {
    if (mask == 0 && hasKeysym(key, first, second)) mask = maskOf(modifier);
  };
  note(masks_.option, XKB_KEY_Alt_L, XKB_KEY_Alt_R);
  note(masks_.command, XKB_KEY_Super_L, XKB_KEY_Super_R);
  note(masks_.numLock, XKB_KEY_Num_Lock, XKB_KEY_Num_Lock);
  note(masks_.scrollLock, XKB_KEY_Scroll_Lock, XKB_KEY_Scroll_Lock);
}

bool X11Keymap::hasKeysym(xcb_keycode_t key, xkb_keysym_t first, xkb_keysym_t second) const {
  if (!keymap_) return false;
  for (xkb_layout_index_t layout = 0; layout < xkb_keymap_num_layouts_for_key(keymap_.get(), key); ++layout) {
    const xkb_keysym_t* keysyms = nullptr;
    const int count = xkb_keymap_key_get_syms_by_level(keymap_.get(), key, layout, 0, &keysyms);
    for (int i = 0; i < count; ++i) {
      if (keysyms[i] == first || keysyms[i] == second) return true;
    }
  }
  return false;
}

std::optional<std::uint16_t> X11Keymap::xModifiers(std::uint32_t carbonModifiers) const {
  const std::pair<std::int64_t, std::uint16_t> known[] = {{carbon::kShift, masks_.shift},
                                                          {carbon::kControl, masks_.control},
                                                          {carbon::kOption, masks_.option},
                                                          {carbon::kCommand, masks_.command}};
  std::int64_t rest = carbonModifiers;
  std::uint16_t result = 0;
  for (const auto& [bit, mask] : known) {
    if ((rest & bit) == 0) continue;
    if (mask == 0) return std::nullopt;
    rest &= ~bit;
    result = static_cast<std::uint16_t>(result | mask);
  }
  if (rest != 0) return std::nullopt;
  return result;
}

std::uint64_t X11Keymap::eventFlags(std::uint32_t xModifiers) const {
  const auto flag = [&](std::uint16_t mask, std::uint64_t bit) { return (xModifiers & mask) != 0 ? bit : 0; };
  return flag(masks_.shift, event_flags::kShift) | flag(masks_.control, event_flags::kControl) |
         flag(masks_.option, event_flags::kOption) | flag(masks_.command, event_flags::kCommand);
}

std::string X11Keymap::characters(xcb_keycode_t key, std::uint16_t state) {
  return textOf(key, state & kRealModifiers, state);
}

std::string X11Keymap::charactersIgnoringModifiers(xcb_keycode_t key, std::uint16_t state) {
  // Num Lock selects the meaning of the number pad; it is not a held modifier.
  return textOf(key, state & static_cast<std::uint32_t>(masks_.shift | masks_.numLock), state);
}

// Through the keysym, so that Control does not change the text.
std::string X11Keymap::textOf(xcb_keycode_t key, std::uint32_t modifiers, std::uint16_t state) {
  refreshIfStale();
  if (!state_) return {};
  xkb_state_update_mask(state_.get(), modifiers, 0, 0, 0, 0, groupOf(state));
  std::array<char, 8> text{};
  xkb_keysym_to_utf8(xkb_state_key_get_one_sym(state_.get(), key), text.data(), text.size());
  return text.data();
}

KeyEvent X11Keymap::keyEvent(KeyEventType type, xcb_keycode_t key, std::uint16_t state, bool isRepeat) {
  return {type,
          virtualKeyCode(key),
          characters(key, state),
          charactersIgnoringModifiers(key, state),
          eventFlags(state) | fnFlag(),
          isRepeat};
}

}  // namespace rondora::x11
