#pragma once

#include <vector>

#include "model/pie_configuration.h"
#include "platform/random_source.h"

namespace rondora {

/// Brings documents of older builds up to the current schema. Each operation is idempotent.
class PieConfigurationMigrator {
 public:
  explicit PieConfigurationMigrator(RandomSource& random) : random_(random) {}

  /// Older builds gave all empty items the same symbol; each gets one that its menu does not use yet.
  void replaceLegacyUnassignedIcons(std::vector<PieMenu>& menus);
  /// Replaces a former default set that the user never changed.
  void upgradeAppCommandsDefaultSet(std::vector<PieMenu>& menus);
  /// Gives standard menus without a sidebar colour the palette's, by their position among the standard menus.
  static void backfillGlobalSidebarIconColors(std::vector<PieMenu>& menus);

  /// Runs the steps of the document's schema version and sets the current one, also for a document of a newer build.
  void bringUpToDate(PieConfiguration& configuration);

 private:
  RandomSource& random_;
};

}  // namespace rondora
