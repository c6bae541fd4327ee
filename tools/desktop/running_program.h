#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/document.h"
#include "desktop/private_desktop.h"
#include "desktop/x_client.h"

namespace rondora::live {

enum class Introduction { seen, due };

/// The program, started on a private desktop as a user starts it, and observed from outside.
class RunningProgram {
 public:
  /// With `configuration` as its document (empty for none); its hotkeys are bound when this returns. `command` becomes
  /// the program, as "env" does.
  RunningProgram(PrivateDesktop& desktop, XClient& client, const std::string& configuration,
                 Introduction introduction = Introduction::seen, const std::vector<std::string>& command = {file()});
  ~RunningProgram();

  pid_t pid() const { return process_->pid(); }
  bool isRunning() const { return process_->isRunning(); }
  bool isWaiting() const { return process_->isWaiting(); }
  void stop() const { process_->stop(); }
  /// Its override-redirect windows, the topmost last: the ring, menus and the snippet preview.
  std::vector<TopLevel> popups();
  /// The open ring, if any.
  std::optional<TopLevel> ring();
  /// Until the ring is open and painted.
  bool waitForRing();
  bool waitForNoRing();
  /// The screen in the ring's area, once it has stopped changing.
  Capture settledPicture();
  Capture settledCapture(Area area);
  /// Waits until that area differs from `before` and is still; nothing if it does not change.
  std::optional<Capture> pictureAfterChange(const Capture& before);

  std::size_t boundKeys() { return client_.resourceCount(pid(), "PASSIVE GRAB"); }
  /// Sends SIGTERM; the exit status, or nothing if the program keeps running.
  std::optional<int> terminate();
  std::optional<int> waitForExit();
  /// The lines it has logged.
  std::vector<std::string> logLines() const;

  /// Managed windows of the program: settings and the like, never the ring.
  std::vector<xcb_window_t> managedWindows();

  /// The program's file: $RONDORA_PROGRAM, else that of this build.
  static std::string file();
  static std::filesystem::path document(const PrivateDesktop& desktop);
  static std::filesystem::path defaults(const PrivateDesktop& desktop);

 private:
  PrivateDesktop& desktop_;
  XClient& client_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace rondora::live
