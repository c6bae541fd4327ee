#pragma once

#include <functional>
#include <optional>

#include "base/observable.h"
#include "model/pie_configuration.h"
#include "platform/main_queue.h"
#include "storage/config_manager.h"

namespace rondora {

/// Owns the document that the settings edit but have not saved yet. Saves once a burst of edits has paused. A document
/// that comes from elsewhere meanwhile (an import) replaces the pending one. Main thread.
class EditSession {
 public:
  static constexpr double kDelay = 0.22;  // seconds
  using Edit = std::function<void(PieConfiguration&)>;

  /// Arguments must outlive the object.
  EditSession(ConfigManager& configManager, MainQueue& mainQueue);

  /// The document with all edits, saved or not.
  const PieConfiguration& document() const;
  /// Applies the edit to the pending document at once and saves after the delay, which restarts with each edit.
  void edit(const Edit& edit);
  /// Saves pending edits at once: before the settings close or the program ends.
  void flush();
  /// The document that is being published is this session's own.
  bool isSaving() const { return isSaving_; }

 private:
  void documentChanged();

  ConfigManager& configManager_;
  MainQueue& mainQueue_;
  std::optional<PieConfiguration> pending_;
  bool isSaving_ = false;
  Subscription workItem_;
  Subscription changes_;
};

}  // namespace rondora
