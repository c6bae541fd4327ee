#pragma once

#include <memory>

class QApplication;

namespace rondora {

/// Makes every object of the program on a Linux desktop and leads them together: the only place that knows them all.
/// Lives between the toolkit's application object and the end of its X connection. Main thread.
class CompositionLinux {
 public:
  explicit CompositionLinux(QApplication& application);
  ~CompositionLinux();
  CompositionLinux(const CompositionLinux&) = delete;
  CompositionLinux& operator=(const CompositionLinux&) = delete;

  /// False when there is no X connection to work with.
  bool isUsable() const { return program_ != nullptr; }
  void start();
  void terminate();

 private:
  struct Program;
  std::unique_ptr<Program> program_;
};

}  // namespace rondora
