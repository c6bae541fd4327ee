#include "platform/linux/x11/keyboard/x11_event_taps.h"

#include <unistd.h>
#include <xcb/xtest.h>

#include <utility>

#include "model/hotkey_config.h"
#include "platform/linux/x11/keyboard/key_codes.h"
#include "platform/linux/x11/keyboard/tap_key_grabs.h"

namespace rondora::x11 {
namespace {

constexpr std::uint32_t kAnyModifier[] = {XCB_INPUT_MODIFIER_MASK_ANY};
constexpr int kRetakes = 8;
constexpr double kRetakeSeconds = 0.05;

}  // namespace

class X11EventTaps::Tap final : public EventTap {
 public:
  Tap(X11EventTaps& taps, std::uint64_t eventMask, std::span<const TapKey> keys, Callback callback)
      : grabs(taps.connection_, taps.keymap_, taps.keys_.xi2(), keys),
        taps_(taps),
        eventMask_(eventMask),
        callback_(std::move(callback)) {
    taps_.tap_ = this;
    grabs.setFnHeld(taps_.isFnHeld_);
  }
  ~Tap() override { taps_.tap_ = nullptr; }

  Subscription addToRunLoop() override {
    isListening_ = true;
    return Subscription([this] { isListening_ = false; });
  }
  void enable(bool isEnabled) override {
    grabs.ungrabAll();
    isEnabled_ = isEnabled;
    if (isEnabled) grabs.grabAll();
  }
  void retake() override {
    if (isEnabled_) grabs.retake();
  }
  bool receives(const TapKey& key) const override { return grabs.isGranted(key); }

  bool isLive() const { return isEnabled_ && isListening_; }
  bool isEnabled() const { return isEnabled_; }
  std::uint64_t eventMask() const { return eventMask_; }
  const Callback& callback() const { return callback_; }

  TapKeyGrabs grabs;

 private:
  X11EventTaps& taps_;
  std::uint64_t eventMask_;
  Callback callback_;
  bool isEnabled_ = false;
  bool isListening_ = false;
};

X11EventTaps::X11EventTaps(X11Connection& connection, X11Keymap& keymap, X11KeyStream& keys,
                           RawKeyReleases& rawReleases, MainQueue& mainQueue)
    : connection_(connection),
      keymap_(keymap),
      keys_(keys),
      rawReleases_(rawReleases),
      mainQueue_(mainQueue),
      probe_(xcb_generate_id(connection.get())) {
  xcb_create_window(connection.get(), 0, probe_, connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, 0, nullptr);
  grabs_ =
      keys.useTapGrabs({.contain = [this](auto code, auto state) { return tap_ && tap_->grabs.contain(code, state); },
                        .handOver = [](auto code) { return code == fnKey(); },
                        .renew =
                            [this](auto code) {
                              if (tap_) tap_->grabs.renew(code);
                            }});
  keymapObserver_ = keymap.onChanged([this] { retakeRepeatedly(); });
  keyConsumer_ = keys.consume(KeyConsumer::tap, [this](const X11Key& key) { return handleKey(key); });
}

X11EventTaps::~X11EventTaps() { xcb_destroy_window(connection_.get(), probe_); }

std::unique_ptr<EventTap> X11EventTaps::create(std::uint64_t eventMask, std::span<const TapKey> keys,
                                               Callback callback) {
  if (!keys_.supportsTapGrabs()) return nullptr;
  return std::make_unique<Tap>(*this, eventMask, keys, std::move(callback));
}

std::vector<EventTapRecord> X11EventTaps::list() const {
  if (tap_ == nullptr) return {};
  return {{ownProcess(), tap_->isEnabled(), tap_->eventMask()}};
}

std::int32_t X11EventTaps::ownProcess() const { return getpid(); }

bool X11EventTaps::isRefused(const TapKey& key) const { return tap_ != nullptr && tap_->grabs.isRefused(key); }

// The server looks for another client's grab, or one of the other protocol, before it looks at the window. So a grab of
// ours, also one whose events have not been read yet, is refused in one protocol only.
bool X11EventTaps::isEnabled() const {
  const Xi2Keyboard& xi2 = keys_.xi2();
  const auto cookie =
      xcb_grab_keyboard(connection_.get(), 0, probe_, XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  const auto xi2Reply = xi2.available() ? xi2.reply(xi2.grabKeyboard(XCB_CURRENT_TIME, probe_)) : nullptr;
  const Reply<xcb_grab_keyboard_reply_t> reply(xcb_grab_keyboard_reply(connection_.get(), cookie, nullptr));
  const auto isGrabbed = [](const auto& answer) { return answer && answer->status == XCB_GRAB_STATUS_ALREADY_GRABBED; };
  return isGrabbed(reply) && isGrabbed(xi2Reply);
}

bool X11EventTaps::offer(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) const {
  return tap_ != nullptr && tap_->callback()(type, keyCode, flags) == TapVerdict::swallow;
}

bool X11EventTaps::handleKey(const X11Key& key) {
  const bool isDown = key.direction == KeyDirection::down;
  const bool isFn = key.code == fnKey();
  if (isFn && isFnHeld_ && !isDown) return handleFn(key);
  if (!isFn && keymap_.isModifierKey(key.code)) return false;
  if (!isFn) mayTypeMenuKey_ = false;
  if (tap_ == nullptr || !tap_->isLive()) return false;
  if (isFn && tap_->grabs.bindsFn()) return handleFn(key);
  const bool isReleaseOfOurs = !isDown && key.taker == KeyConsumer::tap;
  if (isDown && !key.isRepeat) pressedWithFn_[key.code] = keymap_.fnFlag() != 0;
  const std::uint64_t fn = pressedWithFn_[key.code] ? event_flags::kFunction : 0;
  const std::uint64_t flags =
      isReleaseOfOurs ? key.flagsAtPress | fn : keymap_.eventFlags(key.state) | keymap_.fnFlag();
  return offer(isDown ? tap_events::kKeyDown : tap_events::kKeyUp, virtualKeyCode(key.code), flags);
}

// The tap's answer decides only whether the key is typed when it goes up: Fn itself goes to no client. Flags do not
// change with a repeat.
bool X11EventTaps::handleFn(const X11Key& key) {
  const std::uint64_t modifiers = keymap_.eventFlags(key.state);
  if (key.direction == KeyDirection::up) {
    const bool isTyped = std::exchange(mayTypeMenuKey_, false) && !isAnyKeyDown();
    releaseFn();
    offer(tap_events::kFlagsChanged, kFnKeyCode, modifiers);
    if (isTyped) typeMenuKey();
  } else if (!key.isRepeat) {
    const bool isSwallowed = offer(tap_events::kFlagsChanged, kFnKeyCode, modifiers | event_flags::kFunction);
    mayTypeMenuKey_ = !isSwallowed && key.target == KeyTarget::hotkey;
    pressFn();
  }
  return true;
}

void X11EventTaps::pressFn() {
  setFnHeld(true);
  otherReleases_ = rawReleases_.watch([this](xcb_keycode_t released) {
    if (released != fnKey()) mayTypeMenuKey_ = false;
    return false;
  });
}

void X11EventTaps::releaseFn() {
  otherReleases_.reset();
  setFnHeld(false);
}

void X11EventTaps::setFnHeld(bool isHeld) {
  const bool wasHeld = std::exchange(isFnHeld_, isHeld);
  if (wasHeld != isHeld && heldObserver_) heldObserver_(isHeld);
  if (tap_ != nullptr) tap_->grabs.setFnHeld(isHeld);
  keymap_.setFnHeld(isHeld, fnKey());
}

Subscription X11EventTaps::onHeldChanged(std::function<void(bool)> observer) {
  heldObserver_ = std::move(observer);
  return Subscription([this] { heldObserver_ = nullptr; });
}

// Until window managers have followed the change, too.
void X11EventTaps::retakeRepeatedly() {
  if (tap_ == nullptr) return;
  tap_->retake();
  retakes_ = kRetakes;
  if (retakeTimer_) return;
  retakeTimer_ = mainQueue_.timer(kRetakeSeconds, 0, [this] {
    if (tap_ != nullptr) tap_->retake();
    if (--retakes_ <= 0) retakeTimer_.reset();
  });
}

bool X11EventTaps::isAnyKeyDown() const {
  const auto cookie = xcb_query_keymap(connection_.get());
  const Reply<xcb_query_keymap_reply_t> reply(xcb_query_keymap_reply(connection_.get(), cookie, nullptr));
  if (!reply) return true;
  for (int key = 0; key < 256; ++key) {
    const bool isDown = ((reply->keys[key / 8] >> (key % 8)) & 1) != 0;
    if (isDown && key != fnKey() && !keymap_.isModifierKey(static_cast<xcb_keycode_t>(key))) return true;
  }
  return false;
}

// The grab of this program is gone meanwhile, so that the focused client receives the key.
void X11EventTaps::typeMenuKey() const {
  const xcb_keycode_t code = fnKey();
  keys_.xi2().ungrab(code, kAnyModifier);
  for (const std::uint8_t type : {std::uint8_t{XCB_KEY_PRESS}, std::uint8_t{XCB_KEY_RELEASE}}) {
    const auto cookie =
        xcb_test_fake_input(connection_.get(), type, code, XCB_CURRENT_TIME, connection_.root(), 0, 0, 0);
    rawReleases_.disown(cookie.sequence);
  }
  if (tap_) tap_->grabs.renew(code);
  connection_.flush();
}

}  // namespace rondora::x11
