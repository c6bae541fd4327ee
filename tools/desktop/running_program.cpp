#include "desktop/running_program.h"

#include <signal.h>

#include <algorithm>
#include <cstdlib>
#include <sstream>
#include <stdexcept>

#include "desktop/wait.h"

namespace rondora::live {
namespace {

constexpr int kMinRingSide = 200;           // pixels; smaller override-redirect windows are tool tips, menus …
constexpr std::size_t kGrabsPerHotkey = 4;  // with and without Caps Lock and Num Lock

// The introduction is over, and no window opens automatically.
constexpr const char* kDefaults =
    "pie.hasSeenPermissionIntro=true\n"
    "pie.hasAutoOpenedSettingsAfterPermissions=true\n"
    "pie.settingsAutoOpenAfterPermissionsMigrationDone=true\n";

/// At least one: an unreadable document is replaced by the first-run document.
std::size_t hotkeysIn(const std::string& configuration) {
  const Document parsed = Document::parse(configuration, nullptr, false);
  if (!parsed.is_object()) return 1;
  const auto count =
      std::ranges::count_if(parsed["menus"], [](const Document& menu) { return menu["hotkey"]["keyCode"] >= 0; });
  return std::max<std::size_t>(static_cast<std::size_t>(count), 1);
}

}  // namespace

std::string RunningProgram::file() {
  const char* other = std::getenv("RONDORA_PROGRAM");
  return other != nullptr ? other : RONDORA_PROGRAM;
}

std::filesystem::path RunningProgram::document(const PrivateDesktop& desktop) {
  return desktop.configHome() / "Rondora" / "config.json";
}

std::filesystem::path RunningProgram::defaults(const PrivateDesktop& desktop) {
  return desktop.configHome() / "Rondora" / "defaults";
}

RunningProgram::RunningProgram(PrivateDesktop& desktop, XClient& client, const std::string& configuration,
                               Introduction introduction, const std::vector<std::string>& command)
    : desktop_(desktop), client_(client) {
  if (!configuration.empty()) writeFile(document(desktop), configuration);
  if (introduction == Introduction::seen) writeFile(defaults(desktop), kDefaults);
  process_ = desktop.start(command);
  const bool ready = waitUntil([this] { return !process_->isRunning() || boundKeys() >= kGrabsPerHotkey; });
  if (!ready || !process_->isRunning()) {
    throw std::runtime_error("the program bound no hotkey: " + readFile(desktop.logFile("rondora")));
  }
  // The others follow at once, unless another client has grabbed them.
  const std::size_t all = kGrabsPerHotkey * hotkeysIn(configuration);
  waitUntilSteady([&] { return boundKeys() >= all || isWaiting(); });
}

RunningProgram::~RunningProgram() {
  if (process_->isRunning() && !terminate()) kill(pid(), SIGKILL);
}

std::vector<TopLevel> RunningProgram::popups() {
  std::vector<TopLevel> windows = client_.topLevels();
  std::erase_if(windows, [this](const TopLevel& window) {
    return !window.isViewable || !window.isOverrideRedirect || client_.ownerOf(window.window) != pid();
  });
  return windows;
}

std::optional<TopLevel> RunningProgram::ring() {
  for (const TopLevel& window : popups()) {
    if (window.area.width >= kMinRingSide && window.area.height >= kMinRingSide) return window;
  }
  return std::nullopt;
}

bool RunningProgram::waitForRing() {
  return waitUntil([this] {
    const auto open = ring();
    return open && client_.isPainted(*open);
  });
}

bool RunningProgram::waitForNoRing() {
  return waitUntil([this] { return !ring().has_value(); });
}

Capture RunningProgram::settledPicture() { return settledCapture(ring().value().area); }

// A compositor that gets no processor leaves a picture still that it is about to change.
Capture RunningProgram::settledCapture(Area area) {
  return client_.settledCapture(area, [this] { return isWaiting() && desktop_.isWaiting(); });
}

std::optional<Capture> RunningProgram::pictureAfterChange(const Capture& before) {
  if (!waitUntil([&] { return !(client_.capture(before.area) == before); })) return std::nullopt;
  return settledPicture();
}

std::vector<xcb_window_t> RunningProgram::managedWindows() {
  std::vector<xcb_window_t> windows = client_.clientList();
  std::erase_if(windows, [this](xcb_window_t window) { return client_.ownerOf(window) != pid(); });
  return windows;
}

std::optional<int> RunningProgram::terminate() {
  process_->terminate();
  return waitForExit();
}

std::optional<int> RunningProgram::waitForExit() {
  const pid_t process = pid();
  if (!waitUntil([this] { return !process_->isRunning(); })) return std::nullopt;
  // Its grabs end when the server sees that the connections are closed.
  waitUntil([&] { return !client_.isConnected(process); });
  return process_->wait();
}

std::vector<std::string> RunningProgram::logLines() const {
  std::istringstream text(readFile(desktop_.logFile("rondora")));
  std::vector<std::string> lines;
  for (std::string line; std::getline(text, line);) lines.push_back(line);
  return lines;
}

}  // namespace rondora::live
