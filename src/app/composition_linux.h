#pragma once

#include <memory>

class QApplication;

namespace rondora {

class Log;

/// Makes every object of the program on a Linux desktop and leads them together: the only place that knows them all.
/// Lives between the toolkit's application object and the end of its X connection. Main thread.
class CompositionLinux {
 public:
  /// Takes settings and document of the predecessor over. Belongs before everything else that the process does.
  static void runLegacyMigration(Log& log);

  /// `log` outlives this object.
  CompositionLinux(QApplication& application, Log& log);
  ~CompositionLinux();
  CompositionLinux(const CompositionLinux&) = delete;
  CompositionLinux& operator=(const CompositionLinux&) = delete;

  /// False when there is no X connection to work with.
  bool isUsable() const { return program_ != nullptr; }
  void start();
  /// Gives back what was taken from the desktop; at the end of the program, once.
  void terminate();

 private:
  struct Program;
  std::unique_ptr<Program> program_;
};

}  // namespace rondora
