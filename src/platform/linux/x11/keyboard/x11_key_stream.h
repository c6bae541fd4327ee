#pragma once

#include <xcb/xcb.h>

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>

#include "base/observable.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/grab_handover.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/linux/x11/keyboard/xi2_keyboard.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// The consumers of key events, in the order in which they receive each event; an event that one takes reaches no later
/// one. This is the only place that states the order.
enum class KeyConsumer : std::uint8_t { tap, hotkeys, monitors };
inline constexpr std::size_t kKeyConsumerCount = 3;

enum class KeyDirection : std::uint8_t { down, up };

/// What receives the key event: a passive grab, the overlay's active grab, a window of this program, or the active grab
/// of a recording, whose presses only the monitors receive.
enum class KeyTarget : std::uint8_t { hotkey, overlay, ownWindow, recorder };

/// Pixels of the root window.
struct PixelPosition {
  int x = 0;
  int y = 0;
  friend bool operator==(const PixelPosition&, const PixelPosition&) = default;
};

struct X11Key {
  xcb_keycode_t code = 0;
  KeyDirection direction = KeyDirection::down;
  /// False for keys of own windows.
  bool isRepeat = false;
  KeyTarget target = KeyTarget::hotkey;
  /// X mask of the modifiers before the event.
  std::uint16_t state = 0;
  /// For a release that another client received, those of the latest key event.
  xcb_timestamp_t time = XCB_CURRENT_TIME;
  PixelPosition pointer;
  /// For a repeat or release: the consumer that took the press, and the event flags of the press.
  std::optional<KeyConsumer> taker;
  std::uint64_t flagsAtPress = 0;
};

/// Turns the X events of keys into one ordered stream: each physical press arrives once without `isRepeat`, its release
/// once, whichever grab or raw event reports them. Holds the only record of the keys that are down.
///
/// A key of a passive grab is followed until its release, also past the overlay's grab; releases that go to other
/// clients arrive as raw events. Repeats of a key that outlasts the overlay reach no client: the stream grabs that key
/// until its release. Keys that an XI2 grab receives and no consumer takes are handed over to the focused client,
/// unless the overlay takes the keyboard first. Main thread; allocates nothing per event.
class X11KeyStream {
 public:
  /// Returns true when it takes the event.
  using Callback = std::function<bool(const X11Key&)>;

  /// Arguments must outlive the object.
  X11KeyStream(X11Connection& connection, X11Keymap& keymap, RawKeyReleases& rawReleases, MainQueue& mainQueue);

  /// The passive XI2 grabs of an event tap.
  struct TapGrabs {
    /// One of them grabs the key in this state.
    std::function<bool(xcb_keycode_t, std::uint16_t state)> contain;
    /// The key is held like a modifier: other keys go to the focused client meanwhile.
    std::function<bool(xcb_keycode_t)> handOver;
    /// The grabs of the key must be made again.
    std::function<void(xcb_keycode_t)> renew;
  };
  [[nodiscard]] Subscription useTapGrabs(TapGrabs grabs);
  const Xi2Keyboard& xi2() const { return xi2_; }
  /// The server has what `TapGrabs` need.
  bool supportsTapGrabs() const { return xi2_.available() && handover_.available(); }
  /// A passive grab of XI2 is active, so an active one of the core protocol would be refused.
  bool isXi2GrabActive() const { return tapKey_.has_value(); }
  /// As `isXi2GrabActive`, or a key is silenced: during a core grab its release would not be reported.
  bool needsXi2Grab() const;
  /// A tap grabs the key with any modifiers, before every other grab.
  bool isHeldByTap(xcb_keycode_t key) const {
    return tapGrabs_.handOver && tapGrabs_.handOver(key) && tapGrabs_.contain(key, 0);
  }

  /// One callback per consumer. After the tap, repeats and release of a key go first to the consumer that took its
  /// press.
  [[nodiscard]] Subscription consume(KeyConsumer consumer, Callback callback);

  /// The observer receives the pointer's position at each key event of the overlay, before the consumers receive the
  /// key.
  [[nodiscard]] Subscription onPosition(std::function<void(PixelPosition)> observer);

  /// Call it just before the request that grabs the keyboard.
  void beginOverlay();
  /// Call it just before the request that ungrabs the keyboard.
  void endOverlay();
  /// The overlay or a recording holds the keyboard.
  bool overlayHasKeyboard() const { return overlayHasKeyboard_; }
  /// As `beginOverlay` and `endOverlay`, for a recording. An overlay that begins meanwhile ends the recording: `lost`
  /// is called, which must call neither `endRecording` nor ungrab the keyboard.
  void beginRecording(std::function<void()> lost);
  void endRecording();
  bool isRecording() const { return recordingLost_ != nullptr; }
  /// Called with true before the stream grabs a key that outlasts the overlay, with false once it holds none any more.
  [[nodiscard]] Subscription onHeldChanged(std::function<void(bool)> observer);
  /// Call it just before typing into another program: ends the grabs of keys that outlast the overlay.
  void ungrabHeldKeys();

  /// The latest press of a grabbed key; nothing when it was handled more than `maxAge` seconds ago or an overlay closed
  /// since.
  std::optional<PixelPosition> pointerAtPress(double maxAge) const;

 private:
  struct HeldKey {
    bool isDown = false;
    /// Grabbed since the overlay ended.
    bool isGrabbed = false;
    /// Up for all clients, though the user holds it.
    bool isSilenced = false;
    std::optional<KeyConsumer> taker;
    std::uint64_t flagsAtPress = 0;
  };

  bool handleEvent(const xcb_generic_event_t& event);
  bool handleOwnWindow(const xcb_key_press_event_t& event);
  void handlePress(const xcb_key_press_event_t& event);
  void handleXi2Press(const xcb_key_press_event_t& event, bool isRepeat);
  void handleTapPress(const xcb_key_press_event_t& event);
  void handleHeldPress(const xcb_key_press_event_t& event);
  bool hasGrabbedHeldKey() const;
  void reportGrabbedKeys();
  bool isTapPress(const xcb_key_press_event_t& event) const;
  void handleRelease(const xcb_key_release_event_t& event);
  void note(const xcb_key_press_event_t& event);
  void noteUp(xcb_keycode_t key);
  void handOverSoon();
  void handOver();
  void endTapGrab();
  bool grabHeldKey(xcb_keycode_t key);
  void ungrabHeldKey(xcb_keycode_t key);
  X11Key latest(xcb_keycode_t key, KeyDirection direction) const;
  std::optional<KeyConsumer> deliver(const X11Key& key) const;
  bool offer(KeyConsumer consumer, const X11Key& key) const;
  void settled();
  void watchRawReleases();
  void stopWatchingWhenNothingIsDown();
  void forgetAll();
  void forgetKeysThatAreUp();

  X11Connection& connection_;
  X11Keymap& keymap_;
  RawKeyReleases& rawReleases_;
  MainQueue& mainQueue_;
  Xi2Keyboard xi2_;
  GrabHandover handover_;
  TapGrabs tapGrabs_;
  /// The key whose tap grab is active.
  std::optional<xcb_keycode_t> tapKey_;
  Subscription handoverItem_;
  /// By X key code.
  std::array<HeldKey, 256> held_;
  int downCount_ = 0;
  /// As last reported.
  bool hasGrabbedKey_ = false;
  std::function<void(bool)> heldObserver_;
  /// State, time and pointer of the latest key event.
  X11Key latest_;
  /// When the latest press was handled, in seconds of the steady clock.
  double pressedAt_ = 0;
  bool overlayHasKeyboard_ = false;
  /// Set while a recording holds the keyboard.
  std::function<void()> recordingLost_;
  Subscription watch_;
  /// Runs while events from before the ungrab may still arrive.
  Subscription settling_;
  std::array<Callback, kKeyConsumerCount> consumers_;
  std::function<void(PixelPosition)> positionObserver_;
  Subscription eventHandler_;
};

}  // namespace rondora::x11
