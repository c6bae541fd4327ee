#include "ui/qt/windows/toolkit_dialogs.h"

#include <QApplication>
#include <QLibraryInfo>
#include <QLocale>
#include <QPalette>
#include <QTranslator>
#include <cmath>
#include <optional>

#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

constexpr double kLegible = 3;  // of WCAG's contrast ratio
constexpr float kHint = 0.6F;

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

void showHints() {
  const QPalette present;
  const QColor text = present.color(QPalette::Text);
  const QColor base = present.color(QPalette::Base);
  const QColor hint = present.color(QPalette::PlaceholderText);
  const auto blend = [&](float top, float under) { return top * hint.alphaF() + under * (1 - hint.alphaF()); };
  const QColor shown = QColor::fromRgbF(blend(hint.redF(), base.redF()), blend(hint.greenF(), base.greenF()),
                                        blend(hint.blueF(), base.blueF()));
  if (contrast(shown, base) >= kLegible) return;
  QPalette legible;
  legible.setResolveMask(0);
  QColor quiet = text;
  quiet.setAlphaF(kHint);
  legible.setColor(QPalette::PlaceholderText, quiet);
  QApplication::setPalette(legible);
}

}  // namespace

void prepareToolkitDialogs(AppLanguage language) {
  translate(language);
  showHints();
}

}  // namespace rondora
