#include "icons/favicon_links.h"

#include <algorithm>

#include "icons/page_head.h"

namespace rondora {
namespace {

/// Pixels: an icon of 42 points at 2 pixels per point, with a margin.
constexpr int kWantedSide = 96;

/// The smallest that is large enough comes first, else the largest.
bool isBetterFit(const IconLink& a, const IconLink& b) {
  const bool aSuffices = a.side >= kWantedSide;
  const bool bSuffices = b.side >= kWantedSide;
  if (aSuffices != bSuffices) return aSuffices;
  return aSuffices ? a.side < b.side : a.side > b.side;
}

}  // namespace

std::vector<WebAddress> faviconLinks(const WebAddress& page, std::string_view html) {
  PageHead head = readPageHead(html);
  std::stable_sort(head.links.begin(), head.links.end(), isBetterFit);
  const WebAddress base = head.base.empty() ? page : page.resolve(head.base).value_or(page);
  std::vector<WebAddress> addresses;
  for (const IconLink& link : head.links) {
    const auto address = base.resolve(link.href);
    if (address && std::find(addresses.begin(), addresses.end(), *address) == addresses.end()) {
      addresses.push_back(*address);
    }
  }
  return addresses;
}

}  // namespace rondora
