#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "localization/localization_store.h"

namespace rondora {

/// The document's form ("#RRGGBB") of a colour that the user writes; nothing for a text that is no colour.
std::optional<std::string> colorFromText(std::string_view text);

/// Both texts are the same colour.
bool isSameColor(std::string_view one, std::string_view other);

/// The name of a palette's colour, the code of any other.
std::string colorName(std::string_view color, const LocalizationStore& localization);

}  // namespace rondora
