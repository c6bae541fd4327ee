#include "settings/running_apps/excluded_applications.h"

#include <algorithm>

#include "base/unicode.h"

namespace rondora {
namespace {

/// The document has one such menu.
template <class Document>
auto* runningAppsMenu(Document& document) {
  const auto found = std::ranges::find(document.menus, PieMenuKind::runningApps, &PieMenu::kind);
  return found == document.menus.end() ? nullptr : &*found;
}

}  // namespace

std::vector<std::string> ExcludedApplications::identifiers() const {
  const PieMenu* menu = runningAppsMenu(services_.history.document());
  return menu == nullptr ? std::vector<std::string>() : menu->runningAppsExcludedBundleIds;
}

std::optional<std::string> ExcludedApplications::name(std::string_view bundleIdentifier) const {
  if (auto installed = services_.workspace.applicationName(bundleIdentifier)) return installed;
  const auto running = services_.workspace.runningApplications(bundleIdentifier);
  if (running.empty() || running.front().localizedName.empty()) return std::nullopt;
  return running.front().localizedName;
}

std::vector<ExcludedApplications::Row> ExcludedApplications::rows() const {
  std::vector<Row> rows;
  std::vector<std::string> names;
  for (const std::string& each : identifiers()) {
    const auto known = name(each);
    const std::string note(known ? "" : services_.localization.text(StringKey::applicationNotInstalled));
    rows.push_back({each, known.value_or(each), note});
    names.push_back(rows.back().name);
  }
  std::vector<Row> ordered;
  for (const std::size_t place : services_.order.order(names, rawValue(services_.localization.language()))) {
    ordered.push_back(std::move(rows[place]));
  }
  return ordered;
}

void ExcludedApplications::exclude(const std::string& bundleIdentifier) {
  services_.history.edit([&](PieConfiguration& document) {
    PieMenu* menu = runningAppsMenu(document);
    if (menu == nullptr) return;
    auto& excluded = menu->runningAppsExcludedBundleIds;
    excluded.push_back(bundleIdentifier);
    excluded = PieMenu::deduplicatedRunningAppsExcludedBundleIds(excluded);
  });
}

void ExcludedApplications::include(std::string_view bundleIdentifier) {
  services_.history.edit([&](PieConfiguration& document) {
    PieMenu* menu = runningAppsMenu(document);
    if (menu == nullptr) return;
    std::erase_if(menu->runningAppsExcludedBundleIds,
                  [&](const std::string& each) { return lowerCased(each) == lowerCased(bundleIdentifier); });
  });
}

ApplicationList::Offer ExcludedApplications::offer() const {
  ApplicationList::Offer offer{.kinds = false, .runningFirst = true, .without = identifiers()};
  offer.without.push_back(services_.ownBundleIdentifier);
  return offer;
}

}  // namespace rondora
