#include "app/status_item_watch.h"

#include <utility>

namespace rondora {

std::optional<std::string> statusItemProblem(StatusItemVisibility visibility) {
  switch (visibility) {
    case StatusItemVisibility::visible:
      return std::nullopt;
    case StatusItemVisibility::unknown:
      return "the desktop does not answer whether it has a tray";
    case StatusItemVisibility::noTray:
      return "the desktop has no tray";
    case StatusItemVisibility::noPanel:
      return "no panel of the desktop shows status items";
    case StatusItemVisibility::notTaken:
      return "the tray has not taken the item in";
  }
  return std::nullopt;
}

StatusItemWatch::StatusItemWatch(const StatusItem& item, MainQueue& mainQueue) : item_(item), mainQueue_(mainQueue) {
  visibilityObserver_ =
      item.onVisibilityMayHaveChanged(weakSelf_.bind([](StatusItemWatch& self) { self.visibilityMayHaveChanged(); }));
  visibilityMayHaveChanged();
}

void StatusItemWatch::visibilityMayHaveChanged() {
  const StatusItemVisibility visibility = item_.visibility();
  if (visibility == StatusItemVisibility::unknown) return;
  if (!last_) last_ = visibility;
  compareLater();
}

void StatusItemWatch::compareLater() {
  comparison_ = mainQueue_.workItem(kSettlingTime, weakSelf_.bind([](StatusItemWatch& self) { self.compare(); }));
}

void StatusItemWatch::compare() {
  const StatusItemVisibility visibility = item_.visibility();
  // The tray may still take it in, and does not report it.
  if (visibility == StatusItemVisibility::notTaken) compareLater();
  if (std::exchange(last_, visibility) != visibility) changed_.send();
}

}  // namespace rondora
