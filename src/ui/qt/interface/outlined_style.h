#pragma once

#include <QProxyStyle>

namespace rondora {

/// The toolkit's own style with visible outlines on a nearly black window: it darkens the window's colour for them,
/// which leaves the boxes of check boxes, the handles of sliders and the frames of fields black on black.
class OutlinedStyle : public QProxyStyle {
 public:
  OutlinedStyle();

  void drawPrimitive(PrimitiveElement element, const QStyleOption* option, QPainter* painter,
                     const QWidget* widget) const override;
  void drawComplexControl(ComplexControl control, const QStyleOptionComplex* option, QPainter* painter,
                          const QWidget* widget) const override;
};

}  // namespace rondora
