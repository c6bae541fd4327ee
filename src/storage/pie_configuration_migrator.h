#pragma once

#include <vector>

#include "model/pie_configuration.h"
#include "platform/random_source.h"

namespace rondora {

/// Brings documents of older builds up to the current schema. Each operation is idempotent.
class PieConfigurationMigrator {
 public:
  explicit PieConfigurationMigrator(RandomSource& random) : random_(random) {}

  /// Empty items once all had the same symbol; each gets one that its menu does not use yet.
  void replaceLegacyUnassignedIcons(std::vector<PieMenu>& menus);
  /// A default set that the user never changed becomes the present one.
  void upgradeAppCommandsDefaultSet(std::vector<PieMenu>& menus);
  /// Standard menus without a sidebar colour take the palette's, by their place among the standard menus.
  static void backfillGlobalSidebarIconColors(std::vector<PieMenu>& menus);

  /// All that the document's schema version asks for; ends with the current version, also for one from a newer build.
  void bringUpToDate(PieConfiguration& configuration);

 private:
  RandomSource& random_;
};

}  // namespace rondora
