#include "localization/string_table.h"

#include "localization/tables/tables.h"

namespace rondora {

const StringTable& stringTable(AppLanguage language) {
  switch (language) {
    case AppLanguage::russian:
      return kRussianStrings;
    case AppLanguage::english:
      return kEnglishStrings;
    case AppLanguage::chinese:
      return kChineseStrings;
    case AppLanguage::hindi:
      return kHindiStrings;
    case AppLanguage::spanish:
      return kSpanishStrings;
    case AppLanguage::arabic:
      return kArabicStrings;
    case AppLanguage::french:
      return kFrenchStrings;
    case AppLanguage::bengali:
      return kBengaliStrings;
    case AppLanguage::portuguese:
      return kPortugueseStrings;
    case AppLanguage::urdu:
      return kUrduStrings;
    case AppLanguage::indonesian:
      return kIndonesianStrings;
    case AppLanguage::german:
      return kGermanStrings;
    case AppLanguage::japanese:
      return kJapaneseStrings;
  }
  return kEnglishStrings;
}

}  // namespace rondora
