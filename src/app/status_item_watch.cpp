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
    case StatusItemVisibility::noRoom:
      return "the menu bar has no room for the item";
  }
  return std::nullopt;
}

StatusItemWatch::StatusItemWatch(const StatusItem& item, MainQueue& mainQueue) : item_(item), mainQueue_(mainQueue) {
  visibilityObserver_ =
      item.onVisibilityMayHaveChanged(weakSelf_.bind([](StatusItemWatch& self) { self.visibilityMayHaveChanged(); }));
  // A panel that starts at the last moment needs time to take the item in.
  graceEnd_ =
      mainQueue_.workItem(kPanelGrace + kSettlingTime, weakSelf_.bind([](StatusItemWatch& self) { self.endGrace(); }));
  visibilityMayHaveChanged();
}

std::optional<StatusItemVisibility> StatusItemWatch::known() const {
  const StatusItemVisibility visibility = item_.visibility();
  const bool isFinal = visibility == StatusItemVisibility::visible || visibility == StatusItemVisibility::noRoom;
  if (!isFinal && !isGraceOver_) return std::nullopt;
  return visibility;
}

std::optional<std::string> StatusItemWatch::problem() const {
  const auto visibility = known();
  return visibility ? statusItemProblem(*visibility) : std::nullopt;
}

void StatusItemWatch::endGrace() {
  isGraceOver_ = true;
  compare();
}

void StatusItemWatch::visibilityMayHaveChanged() {
  if (item_.visibility() != StatusItemVisibility::unknown) compareLater();
}

void StatusItemWatch::compareLater() {
  comparison_ = mainQueue_.workItem(kSettlingTime, weakSelf_.bind([](StatusItemWatch& self) { self.compare(); }));
}

void StatusItemWatch::compare() {
  // The tray may still take it in, and does not report it.
  if (item_.visibility() == StatusItemVisibility::notTaken) compareLater();
  const auto visibility = known();
  if (std::exchange(last_, visibility) != visibility) changed_.send();
}

}  // namespace rondora
