#pragma once

#include <memory>
#include <optional>

#include "app/single_instance.h"

class QApplication;

namespace rondora {

class Log;

namespace x11 {
class InputGuard;
}

/// Chooses the backend of each port on a Linux desktop, and makes the program with them. Lives between the toolkit's
/// application object and the end of its X connection. Main thread.
class CompositionLinux {
 public:
  /// Imports settings and document of the predecessor; the first action of the process.
  static void runLegacyMigration(Log& log);

  /// `log` and `guard` must outlive the object.
  CompositionLinux(QApplication& application, Log& log, x11::InputGuard& guard, SingleInstance::StartedBy startedBy);
  ~CompositionLinux();
  CompositionLinux(const CompositionLinux&) = delete;
  CompositionLinux& operator=(const CompositionLinux&) = delete;

  /// Whether the program may run; nothing when the toolkit has no X connection.
  std::optional<SingleInstance::Start> claimedStart() const { return start_; }
  // The following only after `SingleInstance::Start::first`.
  void start();
  /// Releases grabs and claims; once, at the end of the program.
  void terminate();
  /// The program ended to start again.
  bool isRelaunchRequested() const;

 private:
  struct Presence;
  struct Running;

  std::optional<SingleInstance::Start> start_;
  std::unique_ptr<Presence> presence_;
  std::unique_ptr<Running> running_;
};

}  // namespace rondora
