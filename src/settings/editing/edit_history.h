#pragma once

#include <cstddef>
#include <deque>
#include <functional>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "base/observable.h"
#include "model/pie_configuration.h"
#include "platform/clock.h"
#include "storage/edit_session.h"

namespace rondora {

/// The edits of the settings, which the user can undo and redo. A document that comes from elsewhere (an import) is a
/// step like an edit. Main thread.
class EditHistory {
 public:
  static constexpr std::size_t kMaxSteps = 200;
  /// Items in all documents that are kept; older steps are dropped, the latest one never.
  static constexpr std::size_t kMaxItems = 200000;
  /// Seconds within which further edits of a field belong to the same step.
  static constexpr double kBurst = 1;

  /// The references must outlive the object.
  EditHistory(EditSession& session, const ConfigManager& config, const Clock& clock);

  const PieConfiguration& document() const { return session_.document(); }
  /// Applies the edit. Edits of one field in quick succession, as of a slider, are one step; without a field each edit
  /// is one. False, without a step, when the edit changes nothing.
  bool edit(const EditSession::Edit& edit, std::string_view field = {});

  /// The observer is called after each edit and step, and when a document comes from elsewhere.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

  bool canUndo() const { return !done_.empty(); }
  bool canRedo() const { return !undone_.empty(); }
  /// Without effect when there is no step.
  void undo() { step(done_, undone_); }
  void redo() { step(undone_, done_); }
  /// Saves at once what else is saved after a pause.
  void save() { session_.flush(); }

 private:
  /// Documents, the latest last.
  using Steps = std::deque<PieConfiguration>;

  void step(Steps& from, Steps& to);
  void push(Steps& steps, PieConfiguration document);
  void published(const PieConfiguration& document);

  EditSession& session_;
  const Clock& clock_;
  Steps done_;
  Steps undone_;
  /// The field that the latest edit was made to, and when (uptime).
  std::string lastField_;
  double lastEdit_ = 0;
  /// The document after the latest step.
  PieConfiguration known_;
  Signal<> changed_;
  Subscription documents_;
};

}  // namespace rondora
