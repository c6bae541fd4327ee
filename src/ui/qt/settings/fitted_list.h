#pragma once

#include <QListWidget>

namespace rondora {

/// A list of wrapping texts that is as high as its rows need, up to a limit.
class FittedList : public QListWidget {
 public:
  explicit FittedList(int maxHeight);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override { return {0, sizeHint().height()}; }
  /// After a change of the rows.
  void fit();

 protected:
  void resizeEvent(QResizeEvent* event) override;
  void focusInEvent(QFocusEvent* event) override;

 private:
  int maxHeight_;
};

}  // namespace rondora
