#pragma once

#include <filesystem>
#include <map>
#include <memory>
#include <optional>
#include <string>
#include <vector>

#include "support/child_process.h"
#include "support/temporary_folder.h"
#include "support/x_client.h"
#include "support/x_server.h"

namespace rondora::live {

enum class WindowManager { none, openbox, xfwm4, i3 };
enum class Compositor { none, picom };
enum class Tray { none, tint2 };

struct DesktopParts {
  WindowManager windowManager = WindowManager::openbox;
  Compositor compositor = Compositor::picom;
  Tray tray = Tray::tint2;
};

/// A desktop that belongs to one test: X server, session bus, the asked-for parts and XDG folders, all ready when the
/// constructor returns. Throws std::runtime_error when a part does not come up.
class PrivateDesktop {
 public:
  explicit PrivateDesktop(DesktopParts parts = {});
  ~PrivateDesktop();

  const std::string& display() const { return server_.display(); }
  /// What programs on this desktop find changed in their environment.
  const std::map<std::string, std::string>& environment() const { return environment_; }
  std::filesystem::path configHome() const { return folder_.path() / "config"; }
  std::filesystem::path dataHome() const { return folder_.path() / "data"; }
  std::filesystem::path logFile(const std::string& name) const { return folder_.path() / (name + ".log"); }

  /// Starts a program on this desktop; what it writes goes to `logFile` of its name.
  std::unique_ptr<ChildProcess> start(const std::vector<std::string>& command) const;
  /// Starts the X screen's tray, which is ready when this returns.
  std::unique_ptr<ChildProcess> startTray() const;
  /// Runs a program to its end and returns what it wrote; nothing when it failed.
  std::optional<std::string> outputOf(const std::vector<std::string>& command) const;

  /// Makes `id` an application that opens one terminal window with that title and window class.
  void addApplication(const std::string& id, const std::string& title) const;
  /// Programs started from here on belong to a session, which `endSession` shuts down.
  void startSessionManager();
  void endSession() { sessionManager_->terminate(); }
  /// What the session manager has saved to be started the next time.
  std::filesystem::path savedSession() const { return folder_.path() / ".XSM-Default"; }
  /// Replaces the monitors of the server; the first one becomes the primary monitor.
  void setMonitors(const std::vector<Area>& monitors);
  /// Takes the X server away from everybody on it.
  void killServer() { server_.terminate(); }

 private:
  void startBus();
  void startParts(const DesktopParts& parts);
  void startWindowManager(WindowManager manager);
  void startPart(const std::vector<std::string>& command) { processes_.push_back(start(command)); }

  TemporaryFolder folder_;
  std::map<std::string, std::string> environment_;
  XServer server_;
  std::vector<std::unique_ptr<ChildProcess>> processes_;
  std::unique_ptr<ChildProcess> sessionManager_;
  std::size_t monitorCount_ = 0;  // that we made
};

}  // namespace rondora::live
