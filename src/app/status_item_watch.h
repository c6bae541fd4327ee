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

/// Follows the status item through trays that come, go and restart. Main thread.
class StatusItemWatch {
 public:
  /// Debounce, in seconds: a panel that restarts is briefly absent, and takes the item in a moment after its return.
  static constexpr double kSettlingTime = 1.0;

  /// Both must outlive this object.
  StatusItemWatch(const StatusItem& item, MainQueue& mainQueue);

  std::optional<std::string> problem() const { return statusItemProblem(item_.visibility()); }
  /// Reports each change that outlasts the settling time.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  void visibilityMayHaveChanged();
  void compareLater();
  void compare();

  const StatusItem& item_;
  MainQueue& mainQueue_;
  Signal<> changed_;
  /// The state that was reported last; nothing before the desktop has answered.
  std::optional<StatusItemVisibility> last_;
  Subscription visibilityObserver_;
  Subscription comparison_;
  WeakSelf<StatusItemWatch> weakSelf_{this};
};

}  // namespace rondora
