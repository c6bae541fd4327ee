#pragma once

#include <memory>

namespace rondora {

class Log;

/// Chooses the backend of each port on macOS, and makes the program with them. Main thread.
class CompositionMacOS {
 public:
  /// Imports settings and document of the predecessor; the first action of the process.
  static void runLegacyMigration(Log& log);

  /// `log` must outlive the object.
  explicit CompositionMacOS(Log& log);
  ~CompositionMacOS();
  CompositionMacOS(const CompositionMacOS&) = delete;
  CompositionMacOS& operator=(const CompositionMacOS&) = delete;

  /// Runs the program until the process ends.
  void run();

 private:
  struct Running;

  std::unique_ptr<Running> running_;
};

}  // namespace rondora
