#include "ui/qt/interface/interface_language.h"

#include <QApplication>
#include <QFontDatabase>
#include <QFontInfo>
#include <QStringList>
#include <algorithm>

namespace rondora {

namespace {

// For a script that the font lacks, the toolkit picks a fallback by script alone: Chinese gets the Japanese forms of
// shared characters, and letters that only Urdu has come from another font than their neighbours.
const QStringList kForChinese = {"Noto Sans CJK SC", "Noto Sans SC", "Source Han Sans SC", "WenQuanYi Micro Hei"};
const QStringList kForJapanese = {"Noto Sans CJK JP", "Noto Sans JP", "Source Han Sans JP", "IPAPGothic"};
const QStringList kForArabicScript = {"Noto Sans Arabic UI", "Noto Sans Arabic", "Noto Naskh Arabic", "Vazirmatn"};

/// `font` with the first installed of `families` in front. Further back a family would work only once: the toolkit
/// caches the merged font under the name of the first family.
QFont withFirstInstalled(const QStringList& families, QFont font) {
  const auto found = std::find_if(families.begin(), families.end(),
                                  [](const QString& family) { return QFontDatabase::hasFamily(family); });
  // QFontInfo resolves a generic name ("Sans Serif"), which the toolkit ignores in a list.
  if (found != families.end()) font.setFamilies({*found, QFontInfo(font).family()});
  return font;
}

bool hasArabicLetter(const QString& text) {
  return std::any_of(text.begin(), text.end(), [](QChar c) { return c.script() == QChar::Script_Arabic; });
}

}  // namespace

QFont interfaceFont(AppLanguage language) {
  static const QFont systemFont = QApplication::font();
  switch (language) {
    case AppLanguage::chinese:
      return withFirstInstalled(kForChinese, systemFont);
    case AppLanguage::japanese:
      return withFirstInstalled(kForJapanese, systemFont);
    case AppLanguage::arabic:
    case AppLanguage::urdu:
      return withFirstInstalled(kForArabicScript, systemFont);
    default:
      return systemFont;
  }
}

void useInterfaceLanguage(AppLanguage language) {
  QApplication::setLayoutDirection(isRightToLeft(language) ? Qt::RightToLeft : Qt::LeftToRight);
  QApplication::setFont(interfaceFont(language));
}

QFont interfaceFontFor(const QString& text) {
  const QFont font = QGuiApplication::font();
  return hasArabicLetter(text) ? withFirstInstalled(kForArabicScript, font) : font;
}

Qt::Alignment leadingAlignment() {
  return Qt::AlignAbsolute | Qt::AlignVCenter | (QGuiApplication::isRightToLeft() ? Qt::AlignRight : Qt::AlignLeft);
}

}  // namespace rondora
