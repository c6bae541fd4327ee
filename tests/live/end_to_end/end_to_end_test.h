#pragma once

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <iostream>
#include <optional>
#include <ostream>
#include <string>

#include "desktop/document.h"
#include "desktop/private_desktop.h"
#include "desktop/running_program.h"
#include "desktop/wait.h"
#include "desktop/x_client.h"

namespace rondora::live {

inline constexpr Position kSomewhere{500, 380};
/// Between the hub and the rim of the rings that `menu` makes.
inline constexpr int kMiddleOfRing = 115;

/// A desktop with one terminal window that is active, an independent client, and (after `start`) the program.
class EndToEndTest : public testing::Test {
 protected:
  explicit EndToEndTest(DesktopParts parts = {}) : desktop_(parts), client_(desktop_.display()) {}

  void SetUp() override {
    desktop_.addApplication("bystander", "Bystander");
    bystander_ = desktop_.start(
        {"xterm", "-class", "Bystander", "-T", "Bystander", "-e", "sh", "-c", "exec cat >\"$0\"", typedFile()});
    ASSERT_TRUE(waitForActive("Bystander"));
    client_.movePointer(kSomewhere);
  }

  /// Prints the state of the desktop after a failure.
  void TearDown() override {
    if (!HasFailure() || !program_) return;
    for (const std::string& line : program_->logLines()) std::cerr << "program: " << line << '\n';
    std::cerr << "active: " << client_.title(client_.activeWindow()) << '\n';
    for (const xcb_window_t window : client_.clientList()) std::cerr << "window: " << client_.title(window) << '\n';
  }

  void start(const Document& document) { program_.emplace(desktop_, client_, document.dump(2)); }

  void holdChord(std::uint8_t keyCode) {
    client_.keyDown(key::control);
    client_.keyDown(key::alt);
    client_.tap(keyCode);
  }
  void releaseChord() {
    client_.keyUp(key::alt);
    client_.keyUp(key::control);
  }
  /// Opens the ring of Control, Alt and the key, and holds the modifiers. Once its picture is still, the ring has also
  /// grabbed keyboard and pointer: all requests go out together.
  testing::AssertionResult open(std::uint8_t keyCode = key::space) {
    holdChord(keyCode);
    if (!program_->waitForRing()) return testing::AssertionFailure() << "no ring after the hotkey";
    program_->settledPicture();
    return testing::AssertionSuccess();
  }
  /// Another program triggers a menu: the reply, nothing on an error.
  std::optional<std::string> trigger(const std::string& menuId) {
    return desktop_.outputOf({"gdbus", "call", "--session", "--dest", "io.github.rondora.Rondora", "--object-path",
                              "/io/github/rondora/Rondora", "--method", "io.github.rondora.Rondora.Trigger", menuId});
  }
  /// Moves the pointer relative to the centre of the ring.
  void pointTo(int right, int down) { client_.movePointer({kSomewhere.x + right, kSomewhere.y + down}); }
  /// Opens the ring, points and releases the chord.
  void choose(int right, int down, std::uint8_t keyCode = key::space) {
    client_.movePointer(kSomewhere);
    ASSERT_TRUE(open(keyCode));
    pointTo(right, down);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }

  /// Ends the line in the bystander's terminal and returns its text.
  std::string typedText() {
    const std::size_t before = typedLength_;
    client_.tap(key::enter);
    waitUntil([&] { return readFile(typedFile()).find('\n', before) != std::string::npos; });
    const std::string text = readFile(typedFile()).substr(before);
    typedLength_ += text.size();
    return text.substr(0, text.find('\n'));
  }
  std::filesystem::path typedFile() const { return desktop_.configHome() / "typed"; }

  bool waitForActive(const std::string& title) {
    return waitUntil([&] { return client_.title(client_.activeWindow()) == title; });
  }
  /// A window manager may announce the active window before it has the input focus.
  bool waitForSettings() {
    return waitForActive("Rondora Settings") &&
           waitUntil([&] { return client_.inputFocus() == client_.activeWindow(); });
  }
  /// Any managed window of the program.
  bool waitForWindow() {
    return waitUntil([&] { return !program_->managedWindows().empty(); });
  }
  void closeWindows() {
    for (const xcb_window_t window : program_->managedWindows()) client_.requestClose(window);
    ASSERT_TRUE(waitUntil([&] { return program_->managedWindows().empty(); }));
  }
  bool waitForClipboard(const std::string& text) {
    return waitUntil([&] { return client_.clipboardText() == text; });
  }
  /// The state of the desktop after every ring: no window, no grab, no key.
  void expectAtRest() {
    EXPECT_TRUE(program_->waitForNoRing());
    EXPECT_TRUE(waitUntil([&] { return client_.nothingIsGrabbed(); }));
    EXPECT_TRUE(waitForRest());
  }
  /// No key is down, and the program is idle.
  bool waitForRest() {
    return waitUntilSteady([&] { return client_.keyboardIsAtRest() && program_->isWaiting(); });
  }

  PrivateDesktop desktop_;
  XClient client_;
  std::unique_ptr<ChildProcess> bystander_;
  std::size_t typedLength_ = 0;
  std::optional<RunningProgram> program_;
};

/// Runs under each window manager.
class UnderWindowManager : public EndToEndTest, public testing::WithParamInterface<WindowManager> {
 protected:
  UnderWindowManager() : EndToEndTest({GetParam(), Compositor::picom, Tray::tint2}) {}
};

inline void PrintTo(WindowManager manager, std::ostream* stream) {
  constexpr const char* kNames[] = {"none", "openbox", "xfwm4", "i3", "metacity"};
  *stream << kNames[static_cast<int>(manager)];
}

inline std::string nameOf(const testing::TestParamInfo<WindowManager>& info) {
  return testing::PrintToString(info.param);
}

}  // namespace rondora::live
