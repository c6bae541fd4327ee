#pragma once

#include <QLabel>

namespace rondora {

/// A text that wraps, can be selected, and takes the focus, so that screen readers read it where it stands.
class FocusText : public QLabel {
 public:
  explicit FocusText(const QString& text = {});

 protected:
  void changeEvent(QEvent* event) override;
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace rondora
