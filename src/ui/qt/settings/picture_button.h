#pragma once

#include <QPushButton>

namespace rondora {

/// A push button with a picture before its text, both in the middle in either direction of writing, where the toolkit
/// tears them apart from right to left. A long text is shortened.
class PictureButton : public QPushButton {
 public:
  QSize minimumSizeHint() const override;

 protected:
  void paintEvent(QPaintEvent* event) override;
};

}  // namespace rondora
