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
  /// More sectors than this would be too narrow to point at.
  static constexpr std::size_t kMaximumCount = 12;

  /// `ownBundleIdentifier` is this program's, which never shows itself.
  RunningAppsMenuItems(const Workspace& workspace, const RunningAppsActivationHistory& history,
                       std::string ownBundleIdentifier)
      : workspace_(workspace), history_(history), ownBundleIdentifier_(std::move(ownBundleIdentifier)) {}

  /// One item for each regular running application that the menu does not exclude, the last activated first, then those
  /// never seen active in the platform's order. An application's item has the same id every time.
  std::vector<PieMenuItem> build(const PieMenu& menu) const;

 private:
  std::vector<RunningApplication> eligibleApplications(const PieMenu& menu) const;
  void sortByLastActivation(std::vector<RunningApplication>& applications) const;

  const Workspace& workspace_;
  const RunningAppsActivationHistory& history_;
  std::string ownBundleIdentifier_;
};

}  // namespace rondora
