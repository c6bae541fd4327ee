#pragma once

#include <functional>
#include <string>
#include <vector>

#include "commands/application_snapshot.h"
#include "localization/localization_store.h"
#include "model/app_sub_menu.h"
#include "model/pie_sub_action.h"

namespace rondora {

struct SubActionTexts {
  const LocalizationStore& localization;
  /// Display text of a key equivalent; empty: none is shown.
  std::function<std::string(const MenuShortcut&)> keyEquivalent;
};

/// The commands that a ring offers for these entries, in their order: without repetitions and without placements that
/// the window does not take. Menu commands that the application lacks or has switched off stay, unavailable. What the
/// snapshot does not tell counts as possible.
std::vector<PieSubAction> makeSubActions(const std::vector<AppSubMenuEntry>& entries,
                                         const ApplicationSnapshot& snapshot, const SubActionTexts& texts);

}  // namespace rondora
