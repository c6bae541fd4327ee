#pragma once

#include <QWidget>
#include <memory>

#include "localization/localization_store.h"
#include "platform/picture_rasterizer.h"
#include "settings/menus/ring_preview.h"

namespace rondora {

/// Draws the ring of a menu on a backdrop that shows its glass, and passes pointer and keys to the preview.
class RingPreviewView : public QWidget {
 public:
  /// The arguments must outlive the object.
  RingPreviewView(RingPreview& preview, const LocalizationStore& localization, PictureRasterizer& rasterizer);
  ~RingPreviewView() override;

  /// Shows the present texts.
  void refresh();
  /// Icons were decoded.
  void refreshIcons();
  /// Tells screen readers what is chosen.
  void setChosen(const QString& title);

  QSize sizeHint() const override;
  QSize minimumSizeHint() const override;
  bool hasHeightForWidth() const override { return true; }
  int heightForWidth(int width) const override { return width; }

 protected:
  void paintEvent(QPaintEvent* event) override;
  void resizeEvent(QResizeEvent* event) override;
  void mousePressEvent(QMouseEvent* event) override;
  void mouseMoveEvent(QMouseEvent* event) override;
  void mouseReleaseEvent(QMouseEvent* event) override;
  void leaveEvent(QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  /// Points of the window for one of the picture.
  double scale() const;
  QPointF corner() const;
  Point inPicture(QPointF position) const;
  void prepare();
  void drawBackdrop(QPainter& painter) const;
  void showCursor();

  RingPreview& preview_;
  const LocalizationStore& localization_;
  PictureRasterizer& rasterizer_;
  std::unique_ptr<PreparedPicture> prepared_;
  /// What `prepared_` was made of.
  Picture picture_;
  double pixelsPerPoint_ = 0;
  QImage pixels_;
  QImage backdrop_;
  Subscription changes_;
};

}  // namespace rondora
