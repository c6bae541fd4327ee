#include "settings/general/status_item_finding.h"

#include <string>

namespace rondora {

SessionFinding statusItemFinding(bool isShown, DesktopKind desktop, const LocalizationStore& localization) {
  const auto text = [&](StringKey inTray, StringKey inMenuBar) {
    return std::string(localization.text(desktop == DesktopKind::macOS ? inMenuBar : inTray));
  };
  if (isShown) return {true, text(StringKey::sessionTray, StringKey::sessionMenuBar), {}};
  return {false, text(StringKey::settingsNoTray, StringKey::sessionNoMenuBarRoom),
          text(StringKey::sessionNoTrayRemedy, StringKey::sessionNoMenuBarRoomRemedy)};
}

}  // namespace rondora
