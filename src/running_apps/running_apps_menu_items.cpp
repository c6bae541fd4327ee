#include "running_apps/running_apps_menu_items.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <set>
#include <string_view>

#include "base/unicode.h"
#include "base/uuid.h"
#include "icons/icon_reference.h"
#include "model/palette.h"

namespace rondora {
namespace {

std::uint64_t fnv1a(std::string_view text, std::uint64_t hash) {
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

/// A version 8 UUID made from the identifier alone.
Uuid stableId(std::string_view bundleIdentifier) {
  const std::uint64_t first = fnv1a(bundleIdentifier, 0xCBF29CE484222325);
  const std::array<std::uint64_t, 2> halves = {first, fnv1a(bundleIdentifier, ~first)};
  std::array<std::uint8_t, 16> bytes{};
  for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<std::uint8_t>(halves[i / 8] >> (8 * (i % 8)));
  bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x80);
  bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
  return Uuid::fromBytes(bytes);
}

PieMenuItem itemFor(const RunningApplication& application, std::size_t sector) {
  const std::string& identifier = *application.bundleIdentifier;
  PieMenuItem item;
  item.id = stableId(identifier);
  item.title = application.localizedName.empty() ? identifier : application.localizedName;
  item.icon = IconReference::application(identifier);
  item.action = LaunchApp{identifier};
  item.color = kItemColorPalette[sector % kItemColorPalette.size()];
  item.sectorIndex = static_cast<std::int64_t>(sector);
  return item;
}

}  // namespace

std::vector<PieMenuItem> RunningAppsMenuItems::build(const PieMenu& menu) const {
  auto applications = eligibleApplications(menu);
  sortByLastActivation(applications);
  if (applications.size() > kMaximumCount) applications.resize(kMaximumCount);
  std::vector<PieMenuItem> items;
  items.reserve(applications.size());
  for (const auto& application : applications) items.push_back(itemFor(application, items.size()));
  return items;
}

std::vector<RunningApplication> RunningAppsMenuItems::eligibleApplications(const PieMenu& menu) const {
  std::set<std::string> taken = {lowerCased(ownBundleIdentifier_)};
  for (const auto& excluded : menu.runningAppsExcludedBundleIds) taken.insert(lowerCased(excluded));
  std::vector<RunningApplication> eligible;
  for (auto& application : workspace_.runningApplications()) {
    if (application.activationPolicy != ActivationPolicy::regular || application.isTerminated) continue;
    if (!application.bundleIdentifier || application.bundleIdentifier->empty()) continue;
    // Taking each identifier once keeps one sector an application, however many processes it has.
    if (taken.insert(lowerCased(*application.bundleIdentifier)).second) eligible.push_back(std::move(application));
  }
  return eligible;
}

void RunningAppsMenuItems::sortByLastActivation(std::vector<RunningApplication>& applications) const {
  const auto& order = history_.bundleIdentifiers();
  const auto rank = [&order](const RunningApplication& application) {
    return std::find(order.begin(), order.end(), *application.bundleIdentifier) - order.begin();
  };
  std::stable_sort(applications.begin(), applications.end(),
                   [&rank](const auto& left, const auto& right) { return rank(left) < rank(right); });
}

}  // namespace rondora
