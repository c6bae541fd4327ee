#pragma once

#include <sys/types.h>
#include <xcb/xcb.h>

#include <chrono>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "base/owned.h"

namespace rondora::live {

/// X key codes of a PC keyboard; they name the place of a key, whatever the layout makes of it.
namespace key {
inline constexpr std::uint8_t escape = 9, digit1 = 10, digit2 = 11, digit3 = 12, digit0 = 19, q = 24, t = 28,
                              control = 37, enter = 36, a = 38, shift = 50, alt = 64, space = 65, n = 57, b = 56,
                              capsLock = 66, f9 = 75, numLock = 77, super = 133;
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

/// What was on the screen in an area; one value 0x00RRGGBB a pixel.
struct Capture {
  Area area;
  std::vector<std::uint32_t> pixels;
  std::uint32_t at(int x, int y) const {
    return pixels[static_cast<std::size_t>((y - area.y) * area.width + (x - area.x))] & 0xFFFFFFU;
  }
  friend bool operator==(const Capture& left, const Capture& right) { return left.pixels == right.pixels; }
};

/// An independent client of the X server: presses keys, moves the pointer and looks at what came of it. Requests are
/// answered by the server before the call returns.
class XClient {
 public:
  explicit XClient(const std::string& display);

  /// For what this class does not do.
  xcb_connection_t* get() const { return connection_.get(); }
  xcb_window_t root() const { return screen_->root; }
  xcb_atom_t atom(const std::string& name);
  /// Returns once the server has done all that was asked of it.
  void sync();

  /// On the server's own keyboard, as a user does; what other programs fake comes from another one.
  void keyDown(std::uint8_t keyCode);
  void keyUp(std::uint8_t keyCode);
  void tap(std::uint8_t keyCode);
  void movePointer(Position position);
  void click(std::uint8_t button = XCB_BUTTON_INDEX_1);
  Position pointer();
  /// Returns once the server's own clock is that much further, whatever else the machine does: then it has done by
  /// itself (repeated held keys) all that was due.
  void letServerRun(std::chrono::milliseconds time);

  /// Asks the window manager for something that costs nothing; true once one has answered.
  bool windowManagerAnswers();
  xcb_window_t selectionOwner(const std::string& name);
  xcb_window_t activeWindow();
  xcb_window_t inputFocus();
  /// Windows that the window manager manages.
  std::vector<xcb_window_t> clientList();
  std::vector<xcb_window_t> windowsTitled(const std::string& title);
  std::string title(xcb_window_t window);
  /// Asks the window manager to close or to activate a window, as a pager does.
  void requestClose(xcb_window_t window);
  void requestActivation(xcb_window_t window);
  std::vector<TopLevel> topLevels();
  /// Where a process shows itself in the tray: its visible window inside one of the tray's.
  std::optional<Area> trayIconOf(pid_t process);

  /// The process behind a resource; 0 when the server does not know.
  pid_t ownerOf(std::uint32_t resource);
  /// How many resources of a type ("WINDOW", "PASSIVE GRAB", …) the connections of a process hold.
  std::size_t resourceCount(pid_t process, const std::string& type);

  /// As another program that fakes events.
  void fakeKeyDown(std::uint8_t keyCode);
  void fakeKeyUp(std::uint8_t keyCode);
  /// Modifiers in force, locks and layout included: the state field of a key event that came now.
  std::uint16_t keyboardState();
  /// What the applications see of the key.
  bool isKeyDown(std::uint8_t keyCode);

  /// No key is down and no modifier is in force, locks included.
  bool keyboardIsAtRest();
  /// Nobody else holds the keyboard: this client gets it for a moment.
  bool keyboardIsFree();
  /// Nobody else holds the keyboard or the pointer.
  bool nothingIsGrabbed();
  /// Binds the key for itself until it is disconnected; false when somebody else has it.
  bool grabKey(std::uint8_t keyCode, std::uint16_t modifiers);

  /// The clipboard's text as its owner gives it; nothing when there is no owner or no answer.
  std::optional<std::string> clipboardText();
  /// Counts how often the clipboard got a new owner or content since this client connected.
  std::size_t clipboardChanges();

  Capture capture(Area area);
  /// What the area shows once it has stopped changing.
  Capture settledCapture(Area area);

 private:
  std::uint8_t findKeyboard();
  void userInput(std::uint8_t type, std::uint8_t keyCode);
  void fakeInput(std::uint8_t type, std::uint8_t detail, Position position = {});
  xcb_timestamp_t serverTime();
  void drainEvents();
  /// A text or a vector of 32-bit values; empty where there is none of that kind.
  template <class Values>
  Values property(xcb_window_t window, xcb_atom_t name);
  void sendToRoot(xcb_window_t window, const std::string& type, const std::uint32_t (&data)[5]);
  std::optional<TopLevel> describe(xcb_window_t window);
  std::vector<xcb_window_t> childrenOf(xcb_window_t window);
  /// Below `window` at `corner`: the first visible window of `inner` that lies in one of `outer`.
  std::optional<Area> windowInside(pid_t outer, pid_t inner, xcb_window_t window, Position corner);

  UniqueCPtr<xcb_connection_t, xcb_disconnect> connection_;
  const xcb_screen_t* screen_ = nullptr;
  xcb_window_t window_ = XCB_NONE;
  std::uint8_t xfixesEvent_ = 0;
  /// Code of the first event of the input extension, and the keyboard that stands for the user's.
  std::uint8_t inputEvent_ = 0;
  std::uint8_t keyboard_ = 0;
  std::size_t clipboardChanges_ = 0;
  bool clipboardAnswered_ = false;
  xcb_timestamp_t lastTime_ = XCB_CURRENT_TIME;
};

}  // namespace rondora::live
