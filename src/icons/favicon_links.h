#pragma once

#include <string_view>
#include <vector>

#include "icons/web_address.h"

namespace rondora {

/// The pictures that a page names as its own, the most fitting for a ring first; drawings (SVG) are left out. Takes
/// any bytes for HTML and reads what can be read.
std::vector<WebAddress> faviconLinks(const WebAddress& page, std::string_view html);

}  // namespace rondora
