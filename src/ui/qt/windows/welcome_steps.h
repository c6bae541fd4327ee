#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>
#include <array>

#include "settings/onboarding/welcome.h"

class QGridLayout;

namespace rondora {

/// The steps of the welcome with their marks, the hotkey as key caps, and the buttons that stand in for it.
class WelcomeSteps : public QFrame {
 public:
  /// `welcome` must outlive the widget.
  explicit WelcomeSteps(const Welcome& welcome);

  void present(const WelcomeContents& contents);
  /// Draws attention to the steps, or no longer.
  void emphasize(bool isEmphasized);
  QPushButton& openRing() const { return *openRing_; }

 protected:
  void changeEvent(QEvent* event) override;

 private:
  struct Row {
    QLabel* mark = nullptr;
    QLabel* text = nullptr;
  };

  static Row addRow(QGridLayout& grid, int place);
  void drawPictures();

  WelcomeContents contents_;
  std::array<Row, 2> rows_;
  QLabel* caps_;
  QPushButton* openRing_;
  QPushButton* chooseHotkey_;
};

}  // namespace rondora
