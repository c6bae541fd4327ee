#include "ui/qt/interface/toolkit_dialogs.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QTranslator>
#include <QWidget>
#include <optional>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/outlined_style.h"
#include "ui/qt/interface/qt_conversions.h"

namespace rondora {
namespace {

constexpr double kLegible = 3;
constexpr double kHint = 0.6;
constexpr double kVisible = 1.8;
constexpr double kOff = 0.45;
/// On a window with less contrast to black, its darkened colour shows no outline.
constexpr double kNearlyBlack = 1.4;

void translate(AppLanguage language) {
  static std::optional<AppLanguage> translated;
  if (translated == language) return;
  translated = language;
  static auto* translator = new QTranslator(qApp);
  QCoreApplication::removeTranslator(translator);
  const QLocale locale(toQString(rawValue(language)));
  const QString folder = QLibraryInfo::path(QLibraryInfo::TranslationsPath);
  if (translator->load(locale, QStringLiteral("qtbase"), QStringLiteral("_"), folder)) {
    QCoreApplication::installTranslator(translator);
  }
}

/// Hints in empty fields, and what is switched off.
void showQuietTexts() {
  const QPalette present;
  const auto color = [&](QPalette::ColorGroup group, QPalette::ColorRole role) {
    return toColor(present.color(group, role));
  };
  QPalette legible;
  legible.setResolveMask(0);
  const Color base = color(QPalette::Active, QPalette::Base);
  if (contrast(layered(base, color(QPalette::Active, QPalette::PlaceholderText)), base) < kLegible) {
    const Color text = color(QPalette::Active, QPalette::Text);
    legible.setColor(QPalette::PlaceholderText, toQColor(text.withAlpha(kHint)));
  }
  const Color window = color(QPalette::Active, QPalette::Window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    if (contrast(color(QPalette::Disabled, role), window) >= kVisible) continue;
    legible.setColor(QPalette::Disabled, role, toQColor(mix(window, color(QPalette::Active, role), kOff)));
  }
  if (legible.resolveMask() != 0) QApplication::setPalette(legible);
}

void showOutlines() {
  const bool isNearlyBlack = contrast(toColor(QPalette().color(QPalette::Window)), {0, 0, 0}) < kNearlyBlack;
  const bool isFusion = QString::fromLatin1(QApplication::style()->metaObject()->className()) == "QFusionStyle";
  if (isNearlyBlack && isFusion) QApplication::setStyle(new OutlinedStyle);
}

}  // namespace

void prepareToolkitDialogs(AppLanguage language) {
  translate(language);
  showQuietTexts();
  showOutlines();
}

void closeToolkitPopups() {
  while (QWidget* popup = QApplication::activePopupWidget()) {
    if (!popup->close()) return;
  }
}

}  // namespace rondora
