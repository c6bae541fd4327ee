#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/main_queue.h"
#include "platform/status_item.h"

namespace rondora {

/// Why the user cannot see the item, for the log; nothing when the user can.
std::optional<std::string> statusItemProblem(StatusItemVisibility visibility);

/// Follows the status item through trays that come, go and restart. A session starts its programs in any order, so an
/// item that no tray shows is hidden only after a grace period; until then nothing is known. Main thread.
class StatusItemWatch {
 public:
  /// Seconds from the launch within which a panel may start.
  static constexpr double kPanelGrace = 10.0;
  /// Debounce, in seconds: a panel that restarts is briefly absent, and takes the item in a moment after its return.
  static constexpr double kSettlingTime = 1.0;

  /// Both must outlive this object.
  StatusItemWatch(const StatusItem& item, MainQueue& mainQueue);

  bool isKnown() const { return known().has_value(); }
  /// Nothing also while nothing is known.
  std::optional<std::string> problem() const;
  /// Reports each change that outlasts the settling time, the first answer included.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  std::optional<StatusItemVisibility> known() const;
  void endGrace();
  void visibilityMayHaveChanged();
  void compareLater();
  void compare();

  const StatusItem& item_;
  MainQueue& mainQueue_;
  Signal<> changed_;
  /// The state that was reported last.
  std::optional<StatusItemVisibility> last_;
  bool isGraceOver_ = false;
  Subscription visibilityObserver_;
  Subscription comparison_;
  Subscription graceEnd_;
  WeakSelf<StatusItemWatch> weakSelf_{this};
};

}  // namespace rondora
