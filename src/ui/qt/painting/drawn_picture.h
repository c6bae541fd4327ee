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
#include "ui/qt/painting/icon_images.h"
#include "ui/qt/painting/prepared_layer.h"
#include "ui/qt/painting/prerendered_pixels.h"

namespace rondora {

/// A picture prepared for painting at one scale. One panel at a time shows it, between `begin` and `end`; what does not
/// depend on the showing is kept between showings. While shown, the pixels of the current states are cached, so that
/// only layers whose state changed are painted again. Main thread.
class DrawnPicture {
 public:
  DrawnPicture(Picture picture, double pixelsPerPoint, IconImages& icons);

  /// True when preparing that picture now would give the same result.
  bool isOf(const Picture& picture, double pixelsPerPoint, IconImages& icons) const;
  /// Becomes that picture if it differs in few layers, and in none of what the first frame shows. Returns false,
  /// without a change, otherwise. Not while shown.
  bool adopt(Picture& picture, double pixelsPerPoint, IconImages& icons);
  /// The approximate memory that it takes between two showings.
  std::size_t byteCount() const;
  /// The memory that `prerender` would add.
  std::size_t prerenderedByteCount() const { return PrerenderedPixels::byteCount(size_); }

  /// Pre-renders the first frame without its backdrop. Not while shown.
  void prerender();

  void begin();
  void end();
  bool isShown() const { return isShown_; }
  /// While shown, as in `PreparedPicture`.
  void setSnapshot(const PixelBuffer& screen);
  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target);
  void prepareChanges();
  bool refreshIcons(IconImages& icons);

 private:
  /// The backdrop of one kind of glass; its image is computed at the first use.
  struct Backdrop {
    const BackdropPaint* paint;
    FrostedGlass glass;
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
  bool showPrerendered(std::span<const double> states, const PictureView& view, PixelBuffer target);
  void beginComposing();
  void compose(std::span<const double> states);
  void composeFirst(std::span<const double> states);
  void draw(const QRect& changed);

  Picture picture_;
  double pixelsPerPoint_;
  QFont font_;
  QSize size_;
  std::vector<PreparedLayer> layers_;
  std::optional<PrerenderedPixels> prerendered_;

  bool isShown_ = false;
  std::vector<Backdrop> backdrops_;
  /// The picture in the states `shown_`, at its own scale and opacity. Null while the only frame so far was composed
  /// from the pre-rendered pixels.
  QImage composed_;
  QImage scratch_;
  std::vector<double> shown_;
  std::vector<QRect> changed_;
};

}  // namespace rondora
