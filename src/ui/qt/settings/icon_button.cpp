#include "ui/qt/settings/icon_button.h"

#include <QHelpEvent>
#include <QToolTip>
#include <utility>

namespace rondora {
namespace {
constexpr int kSide = 16;
}

IconButton::IconButton(const ItemIcons& icons, std::string symbol, std::function<void()> pressed)
    : icons_(icons), symbol_(std::move(symbol)) {
  setAutoRaise(true);
  setFocusPolicy(Qt::StrongFocus);
  setIconSize({kSide, kSide});
  // Later: what it edits may replace the button.
  connect(
      this, &QToolButton::clicked, this, [pressed = std::move(pressed)] { pressed(); }, Qt::QueuedConnection);
}

void IconButton::setName(const QString& name, const QKeySequence& keys) {
  setAccessibleName(name);
  const QString text = keys.toString(QKeySequence::NativeText);
  tip_ = text.isEmpty() ? name : QStringLiteral("%1 (%2)").arg(name, text);
  setAccessibleDescription(text);
}

// Screen readers would read a tool tip of the button's own after its name.
bool IconButton::event(QEvent* event) {
  if (event->type() != QEvent::ToolTip) return QToolButton::event(event);
  QToolTip::showText(static_cast<QHelpEvent*>(event)->globalPos(), tip_, this);
  return true;
}

void IconButton::draw() {
  QIcon icon;
  const double ratio = devicePixelRatioF();
  const auto add = [&](QPalette::ColorGroup group, QIcon::Mode mode) {
    const QColor color = palette().color(group, QPalette::ButtonText);
    icon.addPixmap(icons_.picture(IconReference::parse(symbol_), kSide, color, ratio), mode);
  };
  add(QPalette::Active, QIcon::Normal);
  add(QPalette::Disabled, QIcon::Disabled);
  setIcon(icon);
}

void IconButton::changeEvent(QEvent* event) {
  QToolButton::changeEvent(event);
  if (event->type() == QEvent::PaletteChange) draw();
}

void IconButton::showEvent(QShowEvent* event) {
  draw();
  QToolButton::showEvent(event);
}

}  // namespace rondora
