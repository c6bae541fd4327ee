#pragma once

#include <string>
#include <string_view>

#include "localization/localization_store.h"

namespace rondora {

/// The line below a snippet's preview. `pasteKeys` are the keys that paste on this system, such as "Ctrl+V".
std::string snippetHint(const LocalizationStore& localization, std::string_view pasteKeys);

}  // namespace rondora
