#pragma once

#include <QWheelEvent>

namespace rondora {

/// A control that leaves the wheel to the page, so that scrolling past never changes a value.
template <class Control>
class Unscrolled : public Control {
 public:
  Unscrolled() { Control::setFocusPolicy(Qt::StrongFocus); }

 protected:
  void wheelEvent(QWheelEvent* event) override { event->ignore(); }
};

}  // namespace rondora
