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
  /// More sectors would be narrower than 30° and hard to hit. With more applications, the most recently active ones
  /// are shown.
  static constexpr std::size_t kMaxCount = 12;

  /// `ownBundleIdentifier` is this program's; the menu leaves it out.
  RunningAppsMenuItems(const Workspace& workspace, const RunningAppsActivationHistory& history,
                       std::string ownBundleIdentifier)
      : workspace_(workspace), history_(history), ownBundleIdentifier_(std::move(ownBundleIdentifier)) {}

  /// One item for each regular running application that the menu does not exclude. The previously active application
  /// comes first, so that one step and a release switch to it; the others follow in start order, so that each keeps its
  /// place. An application's item always has the same id, and the same colour while the application runs.
  std::vector<PieMenuItem> build(const PieMenu& menu);

 private:
  using Applications = std::vector<RunningApplication>;
  struct Started {
    std::string identifier;
    /// Index in kItemColorPalette.
    std::size_t color = 0;
  };

  Applications eligibleApplications(const PieMenu& menu);
  void noteStarted(const Applications& running);
  /// `started_.size()` if it is not among them.
  std::size_t startPosition(const std::string& identifier) const;
  /// The identifier's own colour, or the next one that fewer applications have.
  std::size_t freeColorFor(const std::string& identifier) const;
  /// Smaller for a more recently active application.
  std::size_t activationRank(const RunningApplication& application) const;
  void keepLastActive(Applications& applications) const;
  void movePreviousToFront(Applications& applications) const;

  const Workspace& workspace_;
  const RunningAppsActivationHistory& history_;
  std::string ownBundleIdentifier_;
  /// The applications of the last build, in the order of their first appearance.
  std::vector<Started> started_;
};

}  // namespace rondora
