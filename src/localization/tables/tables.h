#pragma once

#include "localization/string_table.h"

// One table per language, each in the file named after its code.

namespace rondora {

extern const StringTable kRussianStrings;
extern const StringTable kEnglishStrings;
extern const StringTable kChineseStrings;
extern const StringTable kHindiStrings;
extern const StringTable kSpanishStrings;
extern const StringTable kArabicStrings;
extern const StringTable kFrenchStrings;
extern const StringTable kBengaliStrings;
extern const StringTable kPortugueseStrings;
extern const StringTable kUrduStrings;
extern const StringTable kIndonesianStrings;
extern const StringTable kGermanStrings;
extern const StringTable kJapaneseStrings;

}  // namespace rondora
