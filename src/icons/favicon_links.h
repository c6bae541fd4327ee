#pragma once

#include <string_view>
#include <vector>

#include "icons/web_address.h"

namespace rondora {

/// The favicon links of a page, the best fit for a ring first, without vector drawings (SVG). Accepts any bytes as
/// HTML.
std::vector<WebAddress> faviconLinks(const WebAddress& page, std::string_view html);

}  // namespace rondora
