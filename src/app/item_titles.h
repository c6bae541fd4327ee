#pragma once

#include <string>

#include "localization/localization_store.h"
#include "model/pie_menu_item.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_activation_history.h"

namespace rondora {

/// What sectors on screen say of their items. Each opening of a ring asks for every item, so nothing here reads files
/// or queries the display server. Main thread.
class ItemTitles {
 public:
  /// The arguments must outlive the object.
  ItemTitles(const Workspace& workspace, const RunningAppsActivationHistory& history,
             const LocalizationStore& localization)
      : workspace_(workspace), history_(history), localization_(localization) {}

  /// The first-run document names applications of one system; where the workspace maps such an identifier to another
  /// application, an item that still has its original title shows that application's name, and without any the kind of
  /// application.
  std::string title(const PieMenuItem& item) const;
  /// It is an application of the first-run document, which stands for one of its kind.
  static bool standsForKind(const PieMenuItem& item);
  /// False for an application that is neither installed nor has been active in this session.
  bool isAvailable(const PieMenuItem& item) const;

 private:
  const Workspace& workspace_;
  const RunningAppsActivationHistory& history_;
  const LocalizationStore& localization_;
};

}  // namespace rondora
