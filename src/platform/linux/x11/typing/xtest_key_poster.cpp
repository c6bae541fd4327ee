#include "platform/linux/x11/typing/xtest_key_poster.h"

#include "platform/linux/x11/keyboard/key_codes.h"

namespace rondora::x11 {
namespace {

/// Event flag of Caps Lock.
constexpr std::uint64_t kAlphaShift = 0x10000;

// Indexed by Modifier.
constexpr std::uint64_t kFlags[] = {event_flags::kControl, event_flags::kOption, event_flags::kShift,
                                    event_flags::kCommand};

ModifierSet modifiersOf(std::uint64_t flags) {
  ModifierSet modifiers;
  for (std::size_t i = 0; i < kModifierCount; ++i) modifiers[i] = (flags & kFlags[i]) != 0;
  return modifiers;
}

}  // namespace

XTestKeyPoster::XTestKeyPoster(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys,
                               RawKeyReleases& rawReleases)
    : connection_(connection), keymap_(keymap), keys_(keys), rawReleases_(rawReleases), keyboard_(connection.get()) {
  readKeymap();
  keymapObserver_ = keymap.onChanged([this] { readKeymap(); });
  if (available()) keyboard_.releaseAll();
}

XTestKeyPoster::~XTestKeyPoster() {
  typing_.finish();
  connection_.flush();
}

void XTestKeyPoster::readKeymap() {
  modifierKeys_ = std::make_shared<const ModifierKeys>(modifierKeysOf(keymap_.keymap()));
}

std::optional<SyntheticKeyEvent> XTestKeyPoster::makeKeyEvent(KeyEventSourceState source, std::uint16_t keyCode,
                                                              bool isDown, const KeyFlags& flags) {
  const auto key = xKeyCodeForSending(keyCode);
  if (!available() || !key || !modifierKeys_->known[*key]) return std::nullopt;
  const bool needsFn = (flags.modifiers & event_flags::kFunction) != 0;  // X11 never sees the Fn key
  if (needsFn || !modifierKeys_->canSet(modifiersOf(flags.modifiers))) return std::nullopt;
  return SyntheticKeyEvent{source, keyCode, isDown, flags.all(), *key};
}

bool XTestKeyPoster::post(const SyntheticKeyEvent& event, KeyEventTap /*tap*/) {
  if (event.isDown) {
    const int locked = (event.flags & kAlphaShift) != 0 ? XCB_MOD_MASK_LOCK : 0;
    keys_.ungrabHeldKeys();
    typed_.send(true);
    typing_.down(modifierKeys_, {static_cast<xcb_keycode_t>(event.nativeKeyCode), modifiersOf(event.flags),
                                 static_cast<std::uint8_t>(locked)});
  } else {
    typing_.up();
    if (typing_.isHolding()) followUser();
  }
  connection_.flush();
  if (!event.isDown) typed_.send(false);
  return true;
}

// The user may have released the key before the watch began.
void XTestKeyPoster::followUser() {
  if (!releaseWatch_) {
    releaseWatch_ = rawReleases_.watch([this](xcb_keycode_t) {
      settle();
      return false;
    });
  }
  settle();
}

void XTestKeyPoster::settle() {
  typing_.settle();
  if (!typing_.isHolding()) releaseWatch_.reset();
  connection_.flush();
}

}  // namespace rondora::x11
