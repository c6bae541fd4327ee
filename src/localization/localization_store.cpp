#include "localization/localization_store.h"

#include <cstddef>

#include "base/unicode.h"
#include "localization/string_table.h"

namespace rondora {
namespace {

constexpr std::string_view kPlaceholder = "%@";
constexpr std::string_view kFirstStrongIsolate = "\u2068";
constexpr std::string_view kPopDirectionalIsolate = "\u2069";

std::string isolated(std::string_view argument) {
  return std::string(kFirstStrongIsolate).append(argument).append(kPopDirectionalIsolate);
}

}  // namespace

void LocalizationStore::setLanguage(AppLanguage language) {
  if (language != language_.value()) language_.send(language);
}

std::string_view LocalizationStore::text(StringKey key) const {
  return stringTable(language())[static_cast<std::size_t>(key)];
}

std::string LocalizationStore::text(StringKey key, std::string_view argument) const {
  std::string result(text(key));
  const auto position = result.find(kPlaceholder);
  if (position == std::string::npos) return result;
  const bool directionsMayMeet = isRightToLeft(language()) || hasRightToLeftLetter(argument);
  return result.replace(position, kPlaceholder.size(), directionsMayMeet ? isolated(argument) : std::string(argument));
}

}  // namespace rondora
