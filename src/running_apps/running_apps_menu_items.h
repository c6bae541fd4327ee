#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "model/pie_menu.h"
#include "model/pie_menu_item.h"
#include "platform/workspace.h"
#include "running_apps/running_apps_activation_history.h"

namespace rondora {

/// Fills the running-applications menu. Main thread.
class RunningAppsMenuItems {
 public:
  /// More sectors than this would be narrower than 30° and hard to hit. Of more applications those show that were
  /// active last.
  static constexpr std::size_t kMaximumCount = 12;

  /// `ownBundleIdentifier` is this program's, which never shows itself.
  RunningAppsMenuItems(const Workspace& workspace, const RunningAppsActivationHistory& history,
                       std::string ownBundleIdentifier)
      : workspace_(workspace), history_(history), ownBundleIdentifier_(std::move(ownBundleIdentifier)) {}

  /// One item for each regular running application that the menu does not exclude. First the application that was
  /// active before the present one, so that one step and letting go returns to it; then the others as they were
  /// started, so that each keeps its place. An application's item has the same id every time.
  std::vector<PieMenuItem> build(const PieMenu& menu);

 private:
  using Applications = std::vector<RunningApplication>;

  Applications eligibleApplications(const PieMenu& menu);
  void noteStarted(const Applications& running);
  /// Smaller for an application that was active later.
  std::size_t activationRank(const RunningApplication& application) const;
  void keepLastActive(Applications& applications) const;
  void movePreviousToFront(Applications& applications) const;

  const Workspace& workspace_;
  const RunningAppsActivationHistory& history_;
  std::string ownBundleIdentifier_;
  /// Identifiers of what ran at the last build, in the order in which they first showed up.
  std::vector<std::string> startOrder_;
};

}  // namespace rondora
