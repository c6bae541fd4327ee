#include "app/item_titles.h"

#include <algorithm>

#include "model/first_run_items.h"

namespace rondora {

std::string ItemTitles::title(const PieMenuItem& item) const {
  const auto* launch = std::get_if<LaunchApp>(&item.action);
  if (!launch) return item.title;
  const bool isOriginal = std::any_of(kFirstRunItems.begin(), kFirstRunItems.end(), [&](const FirstRunItem& first) {
    return first.bundleIdentifier == launch->bundleIdentifier && first.title == item.title;
  });
  if (!isOriginal) return item.title;
  return workspace_.applicationName(launch->bundleIdentifier).value_or(item.title);
}

}  // namespace rondora
