#include "app/item_titles.h"

#include <algorithm>
#include <array>
#include <optional>

#include "model/first_run_items.h"

namespace rondora {
namespace {

/// In the order of `kFirstRunItems`.
constexpr std::array<StringKey, kFirstRunItems.size()> kKinds = {
    StringKey::kindWebBrowser,     StringKey::kindTerminal,    StringKey::kindFileManager,
    StringKey::kindSystemSettings, StringKey::kindMusicPlayer, StringKey::kindTextEditor};

/// The kind of application that an item of the first-run document stands for; nothing once the user has renamed it.
std::optional<StringKey> kindOf(const PieMenuItem& item, const LaunchApp& launch) {
  for (std::size_t i = 0; i < kFirstRunItems.size(); ++i) {
    const FirstRunItem& first = kFirstRunItems[i];
    if (first.bundleIdentifier == launch.bundleIdentifier && first.title == item.title) return kKinds[i];
  }
  return std::nullopt;
}

}  // namespace

std::string ItemTitles::title(const PieMenuItem& item) const {
  const auto* launch = std::get_if<LaunchApp>(&item.action);
  const auto kind = launch ? kindOf(item, *launch) : std::nullopt;
  if (!kind) return item.title;
  if (auto name = workspace_.applicationName(launch->bundleIdentifier)) return *name;
  return std::string(localization_.text(*kind));
}

bool ItemTitles::standsForKind(const PieMenuItem& item) {
  const auto* launch = std::get_if<LaunchApp>(&item.action);
  return launch != nullptr && kindOf(item, *launch).has_value();
}

bool ItemTitles::isAvailable(const PieMenuItem& item) const {
  const auto* launch = std::get_if<LaunchApp>(&item.action);
  if (!launch || workspace_.applicationName(launch->bundleIdentifier)) return true;
  const auto& active = history_.bundleIdentifiers();
  return std::find(active.begin(), active.end(), launch->bundleIdentifier) != active.end();
}

}  // namespace rondora
