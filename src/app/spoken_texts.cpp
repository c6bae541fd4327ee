#include "app/spoken_texts.h"

namespace rondora {
namespace {

/// Items of standard menus are dimmed for one reason only.
std::string reason(const LocalizationStore& localization, const SpokenItem& item) {
  return item.note.empty() ? localization.spoken(StringKey::actionNotInstalled, {item.title}) : item.note;
}

}  // namespace

std::string spokenItem(const LocalizationStore& localization, const SpokenItem& item) {
  const std::string position = std::to_string(item.position);
  const std::string count = std::to_string(item.count);
  std::string text = localization.spoken(StringKey::spokenItem, {item.title, position, count});
  if (item.key) text = localization.spoken(StringKey::spokenItemKey, {text, *item.key});
  return item.isAvailable ? text : text + kSpokenPause + reason(localization, item);
}

}  // namespace rondora
