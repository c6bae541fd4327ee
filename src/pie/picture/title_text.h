#pragma once

#include <string>
#include <string_view>

#include "base/display_list.h"

namespace rondora {

/// The title with soft breaks before dots, after slashes, hyphens and underscores, and between words in camel case.
std::string withSoftBreaks(std::string_view title);

/// In the middle for file names and addresses, whose end matters.
TextElision elisionOf(std::string_view title);

}  // namespace rondora
