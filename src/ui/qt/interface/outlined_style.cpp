#include "ui/qt/interface/outlined_style.h"

#include <QPainter>
#include <QStyleOption>

namespace rondora {
namespace {

/// Contrasts at least 3 : 1 with black where the text is white.
constexpr float kOutline = 0.6F;
constexpr double kCorner = 2;

/// Buttons and lists are lighter or darker than any other window.
bool isBlack(const QStyleOption& option) { return option.palette.color(QPalette::Window).lightness() < 16; }

void outline(QPainter& painter, const QStyleOption& option, const QRect& rect, bool isRound = false) {
  QColor color = option.palette.color(QPalette::WindowText);
  color.setAlphaF(kOutline);
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(color);
  painter.setBrush(Qt::NoBrush);
  const QRectF line = QRectF(rect).adjusted(0.5, 0.5, -0.5, -0.5);
  isRound ? painter.drawEllipse(line) : painter.drawRoundedRect(line, kCorner, kCorner);
  painter.restore();
}

}  // namespace

OutlinedStyle::OutlinedStyle() : QProxyStyle(QStringLiteral("fusion")) {}

void OutlinedStyle::drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                                  const QWidget* widget) const {
  QProxyStyle::drawPrimitive(element, option, painter, widget);
  // A field with the focus has a frame in the colour of a choice.
  if ((option->state & State_HasFocus) != 0 && element == PE_FrameLineEdit) return;
  if (element == PE_IndicatorCheckBox || element == PE_FrameLineEdit) outline(*painter, *option, option->rect);
  if (element == PE_IndicatorRadioButton) outline(*painter, *option, option->rect, true);
  const bool isPart = element == PE_PanelButtonCommand || element == PE_Frame;
  if (isPart && isBlack(*option)) outline(*painter, *option, option->rect);
}

void OutlinedStyle::drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                                       const QWidget* widget) const {
  QProxyStyle::drawComplexControl(control, option, painter, widget);
  if (control == CC_Slider) outline(*painter, *option, subControlRect(control, option, SC_SliderHandle, widget));
  const bool isPart = control == CC_ComboBox || control == CC_SpinBox;
  if (isPart && isBlack(*option)) outline(*painter, *option, option->rect);
}

}  // namespace rondora
