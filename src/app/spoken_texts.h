#pragma once

#include <string>

#include "localization/localization_store.h"
#include "pie/controller/ring_announcements.h"

namespace rondora {

/// "Terminal, 2 of 6, key 1", and why the item is dimmed if it is.
std::string spokenItem(const LocalizationStore& localization, const SpokenItem& item);

}  // namespace rondora
