#pragma once

#include <QComboBox>
#include <functional>

#include "model/app_language.h"

namespace rondora {

/// The interface's languages, each under its own name.
class LanguageChooser : public QComboBox {
 public:
  /// `choose` hears of the user's choices only.
  explicit LanguageChooser(std::function<void(AppLanguage)> choose);

  void setLanguage(AppLanguage language);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// Scrolling past must not put the interface into a language that the user cannot read.
  void wheelEvent(QWheelEvent* event) override;
};

}  // namespace rondora
