#pragma once

#include <memory>
#include <optional>
#include <string>

#include "desktop/document.h"
#include "desktop/private_desktop.h"
#include "desktop/x_client.h"

namespace rondora::live {

enum class Introduction { seen, due };

/// The program, started on a private desktop as a user would start it, and what can be seen of it from outside.
class RunningProgram {
 public:
  /// With `configuration` as its document (empty for none); its hotkeys are bound when this returns.
  RunningProgram(PrivateDesktop& desktop, XClient& client, const std::string& configuration,
                 Introduction introduction = Introduction::seen);
  ~RunningProgram();

  pid_t pid() const { return process_->pid(); }
  bool isRunning() const { return process_->isRunning(); }
  /// All its threads sleep: on a busy machine a program that has much to do may not come to do it.
  bool isWaiting() const;
  /// What it shows beside the window manager, the topmost last: the ring, menus and notes.
  std::vector<TopLevel> popups();
  /// The open ring; nothing while there is none.
  std::optional<TopLevel> ring();
  bool waitForRing();
  bool waitForNoRing();
  /// What the screen shows where the ring is, once it has stopped changing.
  Capture settledPicture();
  /// Waits until the screen there differs from `before`, and returns what it settled to; nothing when it stays.
  std::optional<Capture> pictureAfterChange(const Capture& before);

  std::size_t boundKeys() { return client_.resourceCount(pid(), "PASSIVE GRAB"); }
  /// Asks the program to end; its exit status, or nothing when it goes on.
  std::optional<int> terminate();
  std::optional<int> waitForExit();
  /// Lines that it wrote so far.
  std::vector<std::string> logLines() const;

  /// Managed windows of the program: settings and the like, never the ring.
  std::vector<xcb_window_t> managedWindows();

  /// The program's file: that of this build, or RONDORA_PROGRAM of the environment.
  static std::string file();
  static std::filesystem::path document(const PrivateDesktop& desktop);
  static std::filesystem::path defaults(const PrivateDesktop& desktop);

 private:
  PrivateDesktop& desktop_;
  XClient& client_;
  std::unique_ptr<ChildProcess> process_;
};

}  // namespace rondora::live
