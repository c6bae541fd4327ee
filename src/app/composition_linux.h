#pragma once

#include <memory>

class QApplication;

namespace rondora {

class Log;

/// Chooses the backend of each port on a Linux desktop, and makes the program with them. Lives between the toolkit's
/// application object and the end of its X connection. Main thread.
class CompositionLinux {
 public:
  enum class State {
    ready,
    /// The toolkit has no X connection.
    withoutDisplay,
    /// Another instance runs in this session and has shown its settings.
    handedOver,
    /// Another instance runs in this session and does not answer; logged.
    blocked,
  };

  /// Imports settings and document of the predecessor; the first action of the process.
  static void runLegacyMigration(Log& log);

  /// `log` must outlive the object.
  CompositionLinux(QApplication& application, Log& log);
  ~CompositionLinux();
  CompositionLinux(const CompositionLinux&) = delete;
  CompositionLinux& operator=(const CompositionLinux&) = delete;

  State state() const { return state_; }
  // The following only in state `ready`.
  void start();
  /// Releases grabs and claims; once, at the end of the program.
  void terminate();
  /// The program ended to start again.
  bool isRelaunchRequested() const;

 private:
  struct Presence;
  struct Running;

  State state_ = State::withoutDisplay;
  std::unique_ptr<Presence> presence_;
  std::unique_ptr<Running> running_;
};

}  // namespace rondora
