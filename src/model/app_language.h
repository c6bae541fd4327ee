#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace rondora {

enum class AppLanguage {
  russian,
  english,
  chinese,
  hindi,
  spanish,
  arabic,
  french,
  bengali,
  portuguese,
  urdu,
  indonesian,
  german,
  japanese,
};

inline constexpr std::size_t kAppLanguageCount = 13;

/// All languages, in case order.
inline constexpr std::array<AppLanguage, kAppLanguageCount> kAppLanguages = {
    AppLanguage::russian,    AppLanguage::english, AppLanguage::chinese, AppLanguage::hindi,      AppLanguage::spanish,
    AppLanguage::arabic,     AppLanguage::french,  AppLanguage::bengali, AppLanguage::portuguese, AppLanguage::urdu,
    AppLanguage::indonesian, AppLanguage::german,  AppLanguage::japanese};

/// The two-letter code.
std::string_view rawValue(AppLanguage language);
std::optional<AppLanguage> appLanguageFromRawValue(std::string_view code);
/// The language's name for itself.
std::string_view nativeName(AppLanguage language);
/// Written from right to left.
constexpr bool isRightToLeft(AppLanguage language) {
  return language == AppLanguage::arabic || language == AppLanguage::urdu;
}

}  // namespace rondora
