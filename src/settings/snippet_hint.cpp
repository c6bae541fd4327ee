#include "settings/snippet_hint.h"

namespace rondora {

std::string snippetHint(const LocalizationStore& localization, std::string_view pasteKeys) {
  constexpr std::string_view kKeysInText = "Command+V";
  std::string hint(localization.text(StringKey::snippetHint));
  if (const auto at = hint.find(kKeysInText); at != std::string::npos) hint.replace(at, kKeysInText.size(), pasteKeys);
  return hint;
}

}  // namespace rondora
