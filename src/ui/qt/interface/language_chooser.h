#pragma once

#include <QComboBox>
#include <functional>

#include "model/app_language.h"

namespace rondora {

/// A list of the interface's languages, each under its own name.
class LanguageChooser : public QComboBox {
 public:
  /// Calls `choose` only for the user's choices.
  explicit LanguageChooser(std::function<void(AppLanguage)> choose);

  void setLanguage(AppLanguage language);
  void hidePopup() override;

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  /// Ignores the wheel, so that scrolling past never sets a language that the user cannot read.
  void wheelEvent(QWheelEvent* event) override;

 private:
  bool hasJustClosed_ = false;
};

}  // namespace rondora
