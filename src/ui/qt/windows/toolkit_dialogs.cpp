#include "ui/qt/windows/toolkit_dialogs.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QStyle>
#include <QTranslator>
#include <cmath>
#include <optional>

#include "platform/qt/qt_text.h"
#include "ui/qt/windows/outlined_style.h"

namespace rondora {
namespace {

constexpr double kLegible = 3;  // of WCAG's contrast ratio
constexpr float kHint = 0.6F;
constexpr double kVisible = 1.8;
constexpr float kOff = 0.45F;
/// Of the relative luminance.
constexpr double kNearlyBlack = 0.02;

/// The relative luminance of WCAG 2.
double luminance(const QColor& color) {
  const auto linear = [](double part) {
    return part <= 0.04045 ? part / 12.92 : std::pow((part + 0.055) / 1.055, 2.4);
  };
  return 0.2126 * linear(color.redF()) + 0.7152 * linear(color.greenF()) + 0.0722 * linear(color.blueF());
}

double contrast(const QColor& one, const QColor& other) {
  const double a = luminance(one) + 0.05;
  const double b = luminance(other) + 0.05;
  return std::max(a, b) / std::min(a, b);
}

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

QColor blended(const QColor& top, const QColor& under, float share) {
  const auto mix = [share](float a, float b) { return a * share + b * (1 - share); };
  return QColor::fromRgbF(mix(top.redF(), under.redF()), mix(top.greenF(), under.greenF()),
                          mix(top.blueF(), under.blueF()));
}

/// Hints in empty fields, and what is switched off.
void showQuietTexts() {
  const QPalette present;
  QPalette legible;
  legible.setResolveMask(0);
  const QColor base = present.color(QPalette::Base);
  const QColor hint = present.color(QPalette::PlaceholderText);
  if (contrast(blended(hint, base, hint.alphaF()), base) < kLegible) {
    QColor quiet = present.color(QPalette::Text);
    quiet.setAlphaF(kHint);
    legible.setColor(QPalette::PlaceholderText, quiet);
  }
  const QColor window = present.color(QPalette::Window);
  for (const auto role : {QPalette::WindowText, QPalette::Text, QPalette::ButtonText}) {
    if (contrast(present.color(QPalette::Disabled, role), window) >= kVisible) continue;
    legible.setColor(QPalette::Disabled, role, blended(present.color(QPalette::Active, role), window, kOff));
  }
  if (legible.resolveMask() != 0) QApplication::setPalette(legible);
}

void showOutlines() {
  const bool isNearlyBlack = luminance(QPalette().color(QPalette::Window)) < kNearlyBlack;
  const bool isFusion = QString::fromLatin1(QApplication::style()->metaObject()->className()) == "QFusionStyle";
  if (isNearlyBlack && isFusion) QApplication::setStyle(new OutlinedStyle);
}

}  // namespace

void prepareToolkitDialogs(AppLanguage language) {
  translate(language);
  showQuietTexts();
  showOutlines();
}

}  // namespace rondora
