#include "commands/app_menu_catalog.h"

#include <algorithm>
#include <set>
#include <utility>

namespace rondora {
namespace {

constexpr double kBudget = 1.5;  // seconds; the user waits for a list, not for a ring
constexpr int kMaxDepth = 5;

AppMenuCatalog::Listing listingOf(const AppMenuCommandReader::Crawl& crawl) {
  AppMenuCatalog::Listing listing;
  listing.isComplete = crawl.isComplete;
  std::set<std::vector<std::string>> listed;
  for (const AppMenuItemInfo& item : crawl.items) {
    const bool hasName =
        std::none_of(item.path.begin(), item.path.end(), [](const auto& title) { return title.empty(); });
    if (!hasName || item.hasSubmenu || !listed.insert(item.path).second) continue;
    AppMenuCatalog::Command command{item.path, std::nullopt, item.isEnabled};
    if (!item.shortcutCharacter.value_or("").empty()) command.shortcut = item.shortcut();
    listing.commands.push_back(std::move(command));
  }
  std::stable_partition(listing.commands.begin(), listing.commands.end(),
                        [](const auto& command) { return command.shortcut.has_value(); });
  return listing;
}

}  // namespace

void AppMenuCatalog::list(std::int32_t processIdentifier, std::function<void(Listing)> completion) {
  auto done = weakSelf_.bind(
      [completion = std::move(completion)](AppMenuCatalog&, const Listing& listing) { completion(listing); });
  services_.queue.async([services = services_, processIdentifier, isCancelled = services_.readings.makeIsCancelled(),
                         done = std::move(done)] {
    AppMenuCommandReader reader(services.accessibility, services.clock, isCancelled);
    services.mainQueue.async(
        [done, listing = listingOf(reader.readItems(processIdentifier, kBudget, kMaxDepth))] { done(listing); });
  });
}

}  // namespace rondora
