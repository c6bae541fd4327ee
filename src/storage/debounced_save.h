#pragma once

#include <optional>

#include "base/observable.h"
#include "model/pie_configuration.h"
#include "platform/main_queue.h"
#include "storage/config_manager.h"

namespace rondora {

/// Saves what the settings screens edit, once a burst of edits has paused. Main thread.
class DebouncedSave {
 public:
  static constexpr double kDelay = 0.22;  // seconds

  DebouncedSave(ConfigManager& configManager, MainQueue& mainQueue)
      : configManager_(configManager), mainQueue_(mainQueue) {}

  /// Saves the configuration after the delay, in place of one that still waits.
  void edit(PieConfiguration configuration);
  /// Saves one that waits at once: before the screens close, another document is imported, or the program ends.
  void flush();

 private:
  ConfigManager& configManager_;
  MainQueue& mainQueue_;
  std::optional<PieConfiguration> pending_;
  Subscription workItem_;
};

}  // namespace rondora
