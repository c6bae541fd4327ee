#pragma once

#include <memory>

class QApplication;

namespace rondora {

class Log;

/// Makes every object of the program on a Linux desktop and leads them together: the only place that knows them all.
/// Lives between the toolkit's application object and the end of its X connection. Main thread.
class CompositionLinux {
 public:
  enum class State {
    ready,
    /// There is no X connection to work with.
    withoutDisplay,
    /// Another instance runs in this session and has shown its settings.
    handedOver,
    /// Another instance runs in this session and does not answer; that is logged.
    blocked,
  };

  /// Takes settings and document of the predecessor over. Belongs before everything else that the process does.
  static void runLegacyMigration(Log& log);

  /// `log` outlives this object.
  CompositionLinux(QApplication& application, Log& log);
  ~CompositionLinux();
  CompositionLinux(const CompositionLinux&) = delete;
  CompositionLinux& operator=(const CompositionLinux&) = delete;

  State state() const { return state_; }
  // The rest only when ready.
  void start();
  /// Gives back what was taken from the desktop and the session; at the end of the program, once.
  void terminate();
  /// The program ended in order to be started anew.
  bool isRelaunchRequested() const;

 private:
  struct Presence;
  struct Program;

  State state_ = State::withoutDisplay;
  std::unique_ptr<Presence> presence_;
  std::unique_ptr<Program> program_;
};

}  // namespace rondora
