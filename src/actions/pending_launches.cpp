#include "actions/pending_launches.h"

#include <algorithm>
#include <utility>

namespace rondora {
namespace {

constexpr double kInterval = 0.5;   // seconds
constexpr double kTolerance = 0.1;  // seconds

}  // namespace

PendingLaunches::PendingLaunches(const Ports& ports) : ports_(ports) {
  activations_ = ports_.workspace.onDidActivateApplication(
      [this](const RunningApplication& application) { applicationActivated(application); });
}

void PendingLaunches::add(std::string_view bundleIdentifier, const ApplicationLocation& location, Settled settled) {
  std::erase_if(launches_, [&](const Launch& launch) { return launch.location == location; });
  launches_.push_back({std::string(bundleIdentifier), location, ports_.clock.uptime(), std::move(settled)});
  if (!watch_) watch_ = ports_.mainQueue.timer(kInterval, kTolerance, [this] { settle(); });
  settle();
}

bool PendingLaunches::isPending(const ApplicationLocation& location) {
  settle();
  return std::any_of(launches_.begin(), launches_.end(),
                     [&](const Launch& launch) { return launch.location == location && !launch.failedAt; });
}

void PendingLaunches::applicationActivated(const RunningApplication& application) {
  if (application.bundleIdentifier == ports_.ownBundleIdentifier) return;
  for (Launch& launch : launches_) launch.mayBeHandedOver = true;
  settle();
}

std::optional<PendingLaunches::Outcome> PendingLaunches::outcome(Launch& launch) const {
  if (!ports_.workspace.runningApplications(launch.bundleIdentifier).empty()) return Outcome::worked;
  switch (ports_.workspace.startedProcess(launch.location)) {
    case StartedProcess::failed:
      return outcomeOfFailed(launch);
    case StartedProcess::succeeded:
      return Outcome::worked;
    case StartedProcess::runs:
    case StartedProcess::unknown:
      break;
  }
  return ports_.clock.uptime() - launch.uptime >= kMaxSeconds ? std::optional(Outcome::worked) : std::nullopt;
}

std::optional<PendingLaunches::Outcome> PendingLaunches::outcomeOfFailed(Launch& launch) const {
  const double now = ports_.clock.uptime();
  if (!launch.failedAt) launch.failedAt = now;
  if (launch.mayBeHandedOver) return Outcome::worked;
  return now - *launch.failedAt >= kMaxHandOverSeconds ? std::optional(Outcome::failed) : std::nullopt;
}

void PendingLaunches::settle() {
  std::vector<std::pair<Settled, Outcome>> settled;
  std::erase_if(launches_, [&](Launch& launch) {
    const auto known = outcome(launch);
    if (known) settled.emplace_back(std::move(launch.settled), *known);
    return known.has_value();
  });
  if (launches_.empty()) watch_.reset();
  for (const auto& [report, result] : settled) {
    if (report) report(result);
  }
}

}  // namespace rondora
