#include "model/app_language.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

constexpr RawValueTable<AppLanguage, kAppLanguageCount> kRawValues = {
    {"ru", "en", "zh", "hi", "es", "ar", "fr", "bn", "pt", "ur", "id", "de", "ja"}};

constexpr RawValueTable<AppLanguage, kAppLanguageCount> kNativeNames = {
    {"Русский", "English", "中文", "हिन्दी", "Español", "العربية", "Français", "বাংলা", "Português", "اردو",
     "Bahasa Indonesia", "Deutsch", "日本語"}};

}  // namespace

std::string_view rawValue(AppLanguage language) { return kRawValues.text(language); }

std::string_view nativeName(AppLanguage language) { return kNativeNames.text(language); }

std::optional<AppLanguage> appLanguageFromRawValue(std::string_view code) { return kRawValues.find(code); }

}  // namespace rondora
