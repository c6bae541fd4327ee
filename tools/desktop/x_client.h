#pragma once

#include <sys/types.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/owned.h"

namespace rondora::live {

/// X key codes of a PC keyboard; they name the place of a key, independent of the layout.
namespace key {
inline constexpr std::uint8_t escape = 9, digit1 = 10, digit2 = 11, digit3 = 12, digit0 = 19, q = 24, t = 28,
                              control = 37, enter = 36, a = 38, shift = 50, alt = 64, space = 65, n = 57, b = 56,
                              tab = 23, down = 116, capsLock = 66, f9 = 75, numLock = 77, super = 133;
}  // namespace key

struct Position {
  int x = 0;
  int y = 0;
  friend bool operator==(const Position&, const Position&) = default;
};

struct Area {
  int x = 0, y = 0, width = 0, height = 0;
  friend bool operator==(const Area&, const Area&) = default;
};

/// A child of the root window.
struct TopLevel {
  xcb_window_t window = XCB_NONE;
  Area area;
  bool isViewable = false;
  bool isOverrideRedirect = false;
};

/// The content of a screen area; one value 0x00RRGGBB for each pixel.
struct Capture {
  Area area;
  std::vector<std::uint32_t> pixels;
  std::uint32_t at(int x, int y) const {
    return pixels[static_cast<std::size_t>((y - area.y) * area.width + (x - area.x))] & 0xFFFFFFU;
  }
  friend bool operator==(const Capture& left, const Capture& right) { return left.pixels == right.pixels; }
};

/// An independent client of the X server: presses keys, moves the pointer and observes the result. The server has
/// handled each request when the call returns.
class XClient {
 public:
  explicit XClient(const std::string& display);

  /// The connection, for other requests.
  xcb_connection_t* get() const { return connection_.get(); }
  xcb_window_t root() const { return screen_->root; }
  xcb_atom_t atom(const std::string& name);
  /// Returns once the server has handled all requests.
  void sync();

  /// Runs before each key, click and motion, so that the server knows what a client under test asked for before it.
  void beforeInput(std::function<void()> action) { beforeInput_ = std::move(action); }
  /// On the server's own keyboard, like a user; XTEST events of other programs come from another device.
  void keyDown(std::uint8_t keyCode);
  void keyUp(std::uint8_t keyCode);
  void tap(std::uint8_t keyCode);
  void movePointer(Position position);
  void buttonDown(std::uint8_t button);
  void buttonUp(std::uint8_t button);
  void click(std::uint8_t button = XCB_BUTTON_INDEX_1);
  Position pointer();
  /// Returns once the server's clock has advanced by that much, so that key repeats due by then have happened, however
  /// busy the machine is.
  void letServerRun(std::chrono::milliseconds time);

  /// Sends the window manager a cheap request; true once it has answered.
  bool windowManagerAnswers();
  xcb_window_t selectionOwner(const std::string& name);
  xcb_window_t activeWindow();
  xcb_window_t inputFocus();
  /// Managed windows (_NET_CLIENT_LIST).
  std::vector<xcb_window_t> clientList();
  std::vector<xcb_window_t> windowsTitled(const std::string& title);
  std::string title(xcb_window_t window);
  /// Requests of a pager to the window manager.
  void requestClose(xcb_window_t window);
  void requestActivation(xcb_window_t window);
  std::vector<TopLevel> topLevels();
  /// The tray icon of a process: its visible window inside one of the tray's.
  std::optional<Area> trayIconOf(pid_t process);

  /// The process that owns a resource; 0 if unknown.
  pid_t ownerOf(std::uint32_t resource);
  bool isConnected(pid_t process);
  /// How many resources of a type ("WINDOW", "PASSIVE GRAB", …) the connections of a process hold.
  std::size_t resourceCount(pid_t process, const std::string& type);

  /// On the XTEST keyboard, like another program.
  void fakeKeyDown(std::uint8_t keyCode);
  void fakeKeyUp(std::uint8_t keyCode);
  /// The current state field of key events: modifiers, locks and layout.
  std::uint16_t keyboardState();
  /// As applications see it.
  bool isKeyDown(std::uint8_t keyCode);

  /// No key is down, no modifier and no lock is set.
  bool keyboardIsAtRest();
  /// No other client has grabbed the keyboard; grabs it for a moment to find out.
  bool keyboardIsFree();
  /// No other client has grabbed the keyboard or the pointer.
  bool nothingIsGrabbed();
  /// Grabs the key until the connection closes; false if another client has it.
  bool grabKey(std::uint8_t keyCode, std::uint16_t modifiers);

  /// The clipboard's text; nothing without an owner or a reply.
  std::optional<std::string> clipboardText();
  /// The number of clipboard changes since this client connected.
  std::size_t clipboardChanges();

  Capture capture(Area area);
  /// The window's own pixels in its middle row are not all transparent black.
  bool isPainted(const TopLevel& window);
  /// The area once it has stopped changing, and `isQuiet` has held since.
  Capture settledCapture(Area area, const std::function<bool()>& isQuiet);

 private:
  /// One resource number of each connection of the process.
  std::vector<std::uint32_t> connectionsOf(pid_t process);
  std::uint8_t findKeyboard();
  void userInput(std::uint8_t type, std::uint8_t keyCode);
  void fakeInput(std::uint8_t type, std::uint8_t detail, Position position = {});

  std::function<void()> beforeInput_;
  xcb_timestamp_t serverTime();
  void drainEvents();
  /// A text or a vector of 32-bit values; empty if there is none of that type.
  template <class Values>
  Values property(xcb_window_t window, xcb_atom_t name);
  void sendToRoot(xcb_window_t window, const std::string& type, const std::uint32_t (&data)[5]);
  std::optional<TopLevel> describe(xcb_window_t window);
  std::vector<xcb_window_t> childrenOf(xcb_window_t window);
  /// Below `window` at `corner`: the first visible window of `inner` inside one of `outer`.
  std::optional<Area> windowInside(pid_t outer, pid_t inner, xcb_window_t window, Position corner);

  UniqueCPtr<xcb_connection_t, xcb_disconnect> connection_;
  const xcb_screen_t* screen_ = nullptr;
  xcb_window_t window_ = XCB_NONE;
  std::uint8_t xfixesEvent_ = 0;
  /// The input extension's first event code, and the device of the user's keyboard.
  std::uint8_t inputEvent_ = 0;
  std::uint8_t keyboard_ = 0;
  std::size_t clipboardChanges_ = 0;
  bool clipboardAnswered_ = false;
  xcb_timestamp_t lastTime_ = XCB_CURRENT_TIME;
};

}  // namespace rondora::live
