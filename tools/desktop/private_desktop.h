#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "desktop/child_process.h"
#include "desktop/temporary_folder.h"
#include "desktop/x_client.h"
#include "desktop/x_server.h"

namespace rondora::live {

enum class WindowManager { none, openbox, xfwm4, i3, metacity };
enum class Compositor { none, picom };
enum class Tray { none, tint2 };

struct DesktopParts {
  WindowManager windowManager = WindowManager::openbox;
  Compositor compositor = Compositor::picom;
  Tray tray = Tray::tint2;
  std::string screen = "1280x800x24";  // width x height x depth
  /// Made before the window manager starts, as some never learn of later ones; one that covers the screen if empty.
  std::vector<Area> monitors = {};
};

/// A desktop of its own: X server, a bus for session and system, the given parts and XDG folders, all ready when the
/// constructor returns. Throws std::runtime_error when a part does not come up. The destructor ends every process on
/// the desktop, whichever program started it, and removes the folders.
class PrivateDesktop {
 public:
  explicit PrivateDesktop(DesktopParts parts = {});
  ~PrivateDesktop();

  const std::string& display() const { return server_.display(); }
  /// Environment variables that differ for programs on this desktop.
  const std::map<std::string, std::string>& environment() const { return environment_; }
  std::filesystem::path configHome() const { return folder_.path() / "config"; }
  std::filesystem::path dataHome() const { return folder_.path() / "data"; }
  std::filesystem::path logFile(const std::string& name) const { return folder_.path() / (name + ".log"); }

  /// Starts a program on this desktop; its output goes to `logFile` of its name.
  std::unique_ptr<ChildProcess> start(const std::vector<std::string>& command) const;
  /// The same with this process's standard input, output and error.
  std::unique_ptr<ChildProcess> startInTerminal(const std::vector<std::string>& command) const;
  /// Starts a tray and waits until it is ready.
  std::unique_ptr<ChildProcess> startTray() const;
  /// Runs a program to its end and returns its output; nothing if it failed.
  std::optional<std::string> outputOf(const std::vector<std::string>& command) const;

  /// Window manager, compositor and tray have no work left.
  bool isWaiting() const;
  /// The processes of that name on this desktop, whichever program started them.
  std::vector<pid_t> processesNamed(const std::string& name) const;

  /// Installs an application `id` that opens one terminal window with that title and window class.
  void addApplication(const std::string& id, const std::string& title) const;
  /// Programs started afterwards belong to a session, which `endSession` shuts down.
  void startSessionManager();
  void endSession() { sessionManager_->terminate(); }
  /// The session manager's list of programs for the next login.
  std::filesystem::path savedSession() const { return folder_.path() / ".XSM-Default"; }
  /// Replaces the monitors of the server; the first one becomes the primary monitor.
  void setMonitors(const std::vector<Area>& monitors);
  pid_t busProcess() const { return bus_->pid(); }
  /// Ends the session bus and starts another one at the same address.
  void restartBus();
  /// Kills the X server while clients are connected.
  void killServer() { server_.terminate(); }

 private:
  void startBus();
  void startParts(const DesktopParts& parts);
  void startWindowManager(WindowManager manager);
  void startPart(const std::vector<std::string>& command) { processes_.push_back(start(command)); }
  void endRemainingProcesses() const;

  TemporaryFolder folder_;
  std::map<std::string, std::string> environment_;
  XServer server_;
  std::unique_ptr<ChildProcess> bus_;
  std::vector<std::unique_ptr<ChildProcess>> processes_;
  std::unique_ptr<ChildProcess> sessionManager_;
  std::size_t monitorCount_ = 0;  // made by setMonitors
};

}  // namespace rondora::live
