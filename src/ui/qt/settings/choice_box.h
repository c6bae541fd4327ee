#pragma once

#include <QComboBox>
#include <QKeyEvent>

#include "ui/qt/settings/unscrolled.h"

namespace rondora {

/// A choice that is made in its open list: an arrow key opens the list, as each value on the way would be an edit.
class ChoiceBox : public Unscrolled<QComboBox> {
 public:
  // Also for the texts of a language that is chosen later.
  ChoiceBox() { setSizeAdjustPolicy(QComboBox::AdjustToContents); }

 protected:
  void keyPressEvent(QKeyEvent* event) override {
    const bool isPlain = (event->modifiers() & ~Qt::KeypadModifier) == Qt::NoModifier;
    if (isPlain && (event->key() == Qt::Key_Up || event->key() == Qt::Key_Down)) return showPopup();
    QComboBox::keyPressEvent(event);
  }
};

}  // namespace rondora
