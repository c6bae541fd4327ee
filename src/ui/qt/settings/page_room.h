#pragma once

#include <QScrollArea>

namespace rondora {

/// The place of the pages in the settings' window, which is as large as they need. What the screen has no room for is
/// scrolled.
class PageRoom : public QScrollArea {
 public:
  /// `beside` takes the rest of the window's width, and its frame `frame` of the screen. `beside` must outlive the
  /// object.
  PageRoom(QWidget& pages, const QWidget& beside, QSize frame);

  QSize minimumSizeHint() const override;

 protected:
  bool viewportEvent(QEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;

 private:
  const QWidget& beside_;
  QSize frame_;
};

}  // namespace rondora
