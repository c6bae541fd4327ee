#pragma once

#include <string>
#include <string_view>

#include "localization/localization_store.h"
#include "settings/window_contents.h"

namespace rondora {

/// `firstHotkey` is the display text of the hotkey that a new user tries first; empty when no menu has one.
WindowTexts windowTexts(const LocalizationStore& localization, const std::string& firstHotkey,
                        const std::string& documentPath);

/// The line below a snippet's preview. `pasteKeys` are the keys that paste on this system, such as "Ctrl+V".
std::string snippetHint(const LocalizationStore& localization, std::string_view pasteKeys);

}  // namespace rondora
