#include "localization/localization_store.h"

#include <cstddef>

#include "base/unicode.h"
#include "localization/string_table.h"

namespace rondora {
namespace {

constexpr std::string_view kPlaceholder = "%@";

}  // namespace

void LocalizationStore::setLanguage(AppLanguage language) {
  if (language != language_.value()) language_.send(language);
}

std::string_view LocalizationStore::text(StringKey key) const {
  return stringTable(language())[static_cast<std::size_t>(key)];
}

std::string LocalizationStore::text(StringKey key, std::string_view argument) const {
  std::string result(text(key));
  fillIn(result, 0, argument);
  return result;
}

std::string LocalizationStore::text(StringKey key, std::string_view first, std::string_view second) const {
  std::string result(text(key));
  fillIn(result, fillIn(result, 0, first), second);
  return result;
}

std::string LocalizationStore::spoken(StringKey key, std::initializer_list<std::string_view> arguments) const {
  std::string result(text(key));
  std::size_t from = 0;
  for (const std::string_view argument : arguments) {
    const auto position = result.find(kPlaceholder, from);
    if (position == std::string::npos) break;
    result.replace(position, kPlaceholder.size(), argument);
    from = position + argument.size();
  }
  return result;
}

std::size_t LocalizationStore::fillIn(std::string& text, std::size_t from, std::string_view argument) const {
  const auto position = text.find(kPlaceholder, from);
  if (position == std::string::npos) return from;
  const bool directionsMayMeet = isRightToLeft(language()) || hasRightToLeftLetter(argument);
  const std::string filling = directionsMayMeet ? isolated(argument) : std::string(argument);
  text.replace(position, kPlaceholder.size(), filling);
  return position + filling.size();
}

}  // namespace rondora
