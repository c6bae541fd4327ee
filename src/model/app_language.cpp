#include "model/app_language.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

constexpr RawValueTable<AppLanguage, kAppLanguageCount> kRawValues = {
    {"ru", "en", "zh", "hi", "es", "ar", "fr", "bn", "pt", "ur", "id", "de", "ja"}};

}  // namespace

std::string_view rawValue(AppLanguage language) { return kRawValues.text(language); }

std::optional<AppLanguage> appLanguageFromRawValue(std::string_view code) { return kRawValues.find(code); }

}  // namespace rondora
