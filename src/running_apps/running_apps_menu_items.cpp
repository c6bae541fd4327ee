#include "running_apps/running_apps_menu_items.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <iterator>
#include <limits>
#include <set>

#include "base/content_uuid.h"
#include "base/fnv.h"
#include "base/unicode.h"
#include "icons/icon_reference.h"
#include "model/palette.h"

namespace rondora {
namespace {

/// `identifiers.size()` if it is not among them.
std::size_t positionIn(const std::vector<std::string>& identifiers, const std::string& identifier) {
  return static_cast<std::size_t>(std::find(identifiers.begin(), identifiers.end(), identifier) - identifiers.begin());
}

PieMenuItem itemFor(const RunningApplication& application, std::size_t sector, std::size_t color) {
  const std::string& identifier = *application.bundleIdentifier;
  PieMenuItem item;
  item.id = ContentUuid().add(identifier).uuid();
  item.title = application.localizedName.empty() ? identifier : application.localizedName;
  item.icon = IconReference::application(identifier);
  item.action = LaunchApp{identifier};
  item.color = kItemColorPalette[color];
  item.sectorIndex = static_cast<std::int64_t>(sector);
  return item;
}

}  // namespace

std::vector<PieMenuItem> RunningAppsMenuItems::build(const PieMenu& menu) {
  auto applications = eligibleApplications(menu);
  keepLastActive(applications);
  std::stable_sort(applications.begin(), applications.end(), [this](const auto& left, const auto& right) {
    return startPosition(*left.bundleIdentifier) < startPosition(*right.bundleIdentifier);
  });
  movePreviousToFront(applications);
  std::vector<PieMenuItem> items;
  items.reserve(applications.size());
  for (const auto& application : applications) {
    items.push_back(itemFor(application, items.size(), started_[startPosition(*application.bundleIdentifier)].color));
  }
  return items;
}

RunningAppsMenuItems::Applications RunningAppsMenuItems::eligibleApplications(const PieMenu& menu) {
  auto running = workspace_.runningApplications();
  std::erase_if(running, [](const RunningApplication& application) {
    return application.activationPolicy != ActivationPolicy::regular || application.isTerminated ||
           application.bundleIdentifier.value_or("").empty();
  });
  noteStarted(running);
  std::set<std::string> taken = {lowerCased(ownBundleIdentifier_)};
  for (const auto& excluded : menu.runningAppsExcludedBundleIds) taken.insert(lowerCased(excluded));
  // One sector per identifier, even if the application has several processes.
  std::erase_if(running, [&taken](const RunningApplication& application) {
    return !taken.insert(lowerCased(*application.bundleIdentifier)).second;
  });
  return running;
}

void RunningAppsMenuItems::noteStarted(const Applications& running) {
  std::vector<std::string> identifiers;
  for (const auto& application : running) identifiers.push_back(*application.bundleIdentifier);
  std::erase_if(started_, [&identifiers](const Started& known) {
    return positionIn(identifiers, known.identifier) == identifiers.size();
  });
  for (auto& identifier : identifiers) {
    if (startPosition(identifier) == started_.size()) started_.push_back({identifier, freeColorFor(identifier)});
  }
}

std::size_t RunningAppsMenuItems::startPosition(const std::string& identifier) const {
  const auto found = std::find_if(started_.begin(), started_.end(),
                                  [&identifier](const Started& known) { return known.identifier == identifier; });
  return static_cast<std::size_t>(found - started_.begin());
}

std::size_t RunningAppsMenuItems::freeColorFor(const std::string& identifier) const {
  std::array<std::size_t, kItemColorPalette.size()> uses{};
  for (const Started& known : started_) ++uses[known.color];
  const std::size_t own = fnv1a(identifier) % uses.size();
  std::size_t best = own;
  for (std::size_t step = 1; step < uses.size(); ++step) {
    const std::size_t next = (own + step) % uses.size();
    if (uses[next] < uses[best]) best = next;
  }
  return best;
}

std::size_t RunningAppsMenuItems::activationRank(const RunningApplication& application) const {
  return positionIn(history_.bundleIdentifiers(), *application.bundleIdentifier);
}

void RunningAppsMenuItems::keepLastActive(Applications& applications) const {
  if (applications.size() <= kMaxCount) return;
  std::stable_sort(applications.begin(), applications.end(), [this](const auto& left, const auto& right) {
    return activationRank(left) < activationRank(right);
  });
  applications.resize(kMaxCount);
}

void RunningAppsMenuItems::movePreviousToFront(Applications& applications) const {
  const auto frontmost = workspace_.frontmostApplication();
  const auto rank = [&](const RunningApplication& application) {
    const bool isPresent = frontmost && application.bundleIdentifier == frontmost->bundleIdentifier;
    return isPresent ? std::numeric_limits<std::size_t>::max() : activationRank(application);
  };
  const auto previous =
      std::min_element(applications.begin(), applications.end(),
                       [&rank](const auto& left, const auto& right) { return rank(left) < rank(right); });
  if (previous != applications.end()) std::rotate(applications.begin(), previous, std::next(previous));
}

}  // namespace rondora
