#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "base/owned.h"
#include "desktop/x_client.h"
#include "desktop/x_server.h"
#include "doubles/virtual_time.h"
#include "pie/controller/pie_view.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/x11_event_monitors.h"
#include "platform/linux/x11/keyboard/x11_event_taps.h"
#include "platform/linux/x11/keyboard/x11_hotkey_service.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/linux/x11/overlay/x11_overlay_panel.h"
#include "platform/linux/x11/overlay/x11_pointer.h"
#include "solid_rasterizer.h"

namespace rondora::live {

inline constexpr std::uint32_t kSpace = 49;
inline constexpr std::uint32_t kEscape = 53;
inline constexpr std::uint32_t kSuper = 55;
inline constexpr std::uint32_t kControlOption = 0x1800;
inline constexpr std::uint16_t kControlMask = XCB_MOD_MASK_CONTROL;
inline constexpr std::uint16_t kAltMask = XCB_MOD_MASK_1;
inline constexpr std::uint16_t kNumLockMask = XCB_MOD_MASK_2;

/// Maps that client's override-redirect window over the area, in one colour; it receives button and key events.
xcb_window_t coverArea(xcb_connection_t* connection, const Area& area);
inline constexpr std::uint32_t kCoverColor = 0x00FF00;

/// Another client, with grabs and windows.
class Bystander : public XClient {
 public:
  using XClient::XClient;

  bool grabKeyboard();
  bool grabPointer();
  /// Ends its grabs.
  void ungrab();
  /// Sets the input focus to a window of its own.
  void takeFocus();
  xcb_window_t cover(const Area& area);
  /// The types of the events that it received.
  std::vector<int> eventTypes();
  /// The key events that it received, by X key code: "+38 -38 ".
  std::string keys();
  void ungrabKey(std::uint8_t keyCode, std::uint16_t modifiers);
};

struct RecordingSink : OverlayPanelSink {
  std::vector<Point> moves;
  std::vector<Point> presses;
  int lost = 0;
  void pointerMoved(Point location) override { moves.push_back(location); }
  void pointerEntered() override {}
  void pointerExited() override {}
  void mouseDown(Point location) override { presses.push_back(location); }
  void panelLost() override { ++lost; }
};

/// The input side of the program on a private X server. Keys do not repeat by default. The main queue's time advances
/// in `eventually` only, and never faster than real time.
class X11Test : public testing::Test {
 protected:
  explicit X11Test(std::vector<std::string> serverArguments = {"-r"}, double pixelsPerPoint = 1);
  ~X11Test() override;

  /// Handles events and due work until the condition holds; false after the deadline.
  bool eventually(const std::function<bool()>& condition);
  /// Handles all events so far, after a round trip.
  void drain();

  /// Registers the combination under the number and records its reports.
  bool registerHotkey(std::uint32_t keyCode, std::uint32_t carbonModifiers, std::uint32_t id = 1);
  void pressChord();
  void releaseChord();
  void tapChord();
  void enableStickyKeys();
  /// The reports of hot keys since the last call: "+1" pressed, "+1 latched", "-1" released.
  std::vector<std::string> reports();
  /// The events of key monitors since the last call: "down space", "repeat space", "up q" …
  std::vector<std::string> keysSeen();

  std::unique_ptr<OverlayPanel> openPanel(Rect frame = {{100, 100}, {200, 200}});
  void runTool(const std::vector<std::string>& command);

  XServer server_;
  XClient user_;
  UniqueCPtr<xcb_connection_t, xcb_disconnect> handle_;
  VirtualTime time_;
  x11::X11Connection connection_;
  x11::X11Keymap keymap_;
  x11::RawKeyReleases rawReleases_;
  x11::X11KeyStream keys_;
  x11::X11EventTaps eventTaps_;
  x11::X11HotkeyService hotkeys_;
  x11::X11EventMonitors monitors_;
  x11::X11InputGrab inputGrab_;
  x11::X11Pointer pointer_;
  SolidRasterizer rasterizer_;
  x11::X11OverlayPanels panels_;
  RecordingSink sink_;
  std::vector<Subscription> registrations_;
  std::vector<std::string> reports_;
  std::vector<KeyEvent> keyEvents_;
  Subscription reportHandler_;
  Subscription keyMonitor_;

 private:
  bool handleEvents();

  int errorCount_ = 0;
};

}  // namespace rondora::live
