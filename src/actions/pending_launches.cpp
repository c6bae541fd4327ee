#include "actions/pending_launches.h"

#include <algorithm>

namespace rondora {

PendingLaunches::PendingLaunches(Workspace& workspace, const Clock& clock) : workspace_(workspace), clock_(clock) {
  activations_ = workspace.onDidActivateApplication([this](const RunningApplication&) { forgetFinished(); });
}

void PendingLaunches::add(std::string_view bundleIdentifier, const ApplicationLocation& location) {
  launches_.push_back({std::string(bundleIdentifier), location, clock_.uptime()});
}

bool PendingLaunches::isPending(const ApplicationLocation& location) {
  forgetFinished();
  return std::any_of(launches_.begin(), launches_.end(),
                     [&](const Launch& launch) { return launch.location == location; });
}

bool PendingLaunches::isOver(const Launch& launch) const {
  return clock_.uptime() - launch.uptime >= kMaxSeconds || workspace_.startedProcessRuns(launch.location) == false ||
         !workspace_.runningApplications(launch.bundleIdentifier).empty();
}

void PendingLaunches::forgetFinished() {
  std::erase_if(launches_, [this](const Launch& launch) { return isOver(launch); });
}

}  // namespace rondora
