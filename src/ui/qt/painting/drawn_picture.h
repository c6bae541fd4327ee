#pragma once

#include <QFont>
#include <QImage>
#include <QRect>
#include <cstddef>
#include <optional>
#include <span>
#include <vector>

#include "base/display_list.h"
#include "platform/picture_rasterizer.h"
#include "ui/painting/frosted_glass.h"
#include "ui/qt/painting/drawn_ahead.h"
#include "ui/qt/painting/icon_images.h"
#include "ui/qt/painting/prepared_layer.h"

namespace rondora {

/// A picture with all that painting it needs, for one scale. It is shown by one panel at a time, between `begin` and
/// `end`, and remembers in between what does not depend on the showing. While shown it remembers what its present
/// states look like, so that only layers whose state changed are drawn again. Main thread.
class DrawnPicture {
 public:
  DrawnPicture(Picture picture, double pixelsPerPoint, IconImages& icons);

  /// Whether preparing that picture now would come to the same.
  bool isOf(const Picture& picture, double pixelsPerPoint, IconImages& icons) const;
  /// What it takes between two showings, about.
  std::size_t byteCount() const;
  /// What `drawAhead` would add to that.
  std::size_t byteCountAhead() const { return DrawnAhead::byteCount(size_); }

  /// Draws what a first frame needs but for the backdrop. Not while shown.
  void drawAhead();

  void begin();
  void end();
  bool isShown() const { return isShown_; }
  /// While shown, as `PreparedPicture`.
  void setBackdrop(const PixelBuffer& screen);
  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target);
  void prepareChanges();

 private:
  /// What shines through the glass of one kind; its pixels are made when they are first drawn with.
  struct Backdrop {
    const BackdropPaint* paint;
    FrostedGlass seen;
    QImage image;
  };

  void forgetBackdrop();
  std::vector<const BackdropPaint*> backdrops() const;
  QImage drawnOnGlass(const QBrush& backdrop);
  bool isPlain(const PictureView& view) const;
  bool isComposed(std::span<const double> states) const;
  void show(const PictureView& view, PixelBuffer target) const;
  void drawPlain(QPainter& painter, QRect dirty) const;
  void drawScaled(QPainter& painter, const PictureView& view, QRect dirty) const;
  void useBackdrops();
  bool showAhead(std::span<const double> states, const PictureView& view, PixelBuffer target);
  void beginComposing();
  void compose(std::span<const double> states);
  void composeFirst(std::span<const double> states);
  void draw(const QRect& changed);

  Picture picture_;
  double pixelsPerPoint_;
  QFont font_;
  QSize size_;
  std::vector<PreparedLayer> layers_;
  std::optional<DrawnAhead> ahead_;

  bool isShown_ = false;
  std::vector<Backdrop> backdrops_;
  /// The picture in the states `shown_`, at its own scale and opacity. Null while only the first frame was painted,
  /// from what was drawn ahead.
  QImage composed_;
  QImage scratch_;
  std::vector<double> shown_;
  std::vector<QRect> changed_;
};

}  // namespace rondora
