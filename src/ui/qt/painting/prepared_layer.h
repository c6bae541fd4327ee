#pragma once

#include <QBrush>
#include <QImage>
#include <QPainter>
#include <QPainterPath>
#include <QPen>
#include <QPoint>
#include <QRect>
#include <array>
#include <cstddef>
#include <functional>
#include <memory>
#include <optional>
#include <variant>
#include <vector>

#include "base/display_list.h"
#include "platform/picture_rasterizer.h"
#include "ui/qt/painting/icon_images.h"
#include "ui/qt/painting/prepared_text.h"

namespace rondora {

struct PreparedFill {
  QPainterPath path;
  QBrush brush;
  QPainterPath clip;
  std::optional<BackdropPaint> backdrop;
};
struct PreparedStroke {
  QPainterPath path;
  QPen pen;
};
struct PreparedIcon {
  QImage image;
  QPoint position;
};
using PreparedCommand = std::variant<PreparedFill, PreparedStroke, PreparedIcon, std::unique_ptr<PreparedText>>;

/// One layer of a picture for one scale. Its two latest states are kept as pixels, made when they are first seen, so
/// that going back and forth between them, and painting over what lies beneath, is copying. All lengths are pixels.
class PreparedLayer {
 public:
  PreparedLayer(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons, QSize pictureSize);

  QRect bounds() const { return bounds_; }
  bool hasStates() const { return states_.size() > 1; }
  /// Glass shows what `backdropFor` says.
  void setBackdrop(const std::function<QBrush(const BackdropPaint&)>& backdropFor);
  /// Whether preparing the same layer now would find the same icons.
  bool hasIconsOf(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons) const;
  /// Has room for the pixels that `draw` keeps, or gives it back with them.
  void makeRoom();
  void giveRoomBack() { kept_ = {}; }
  /// Paints all of it without keeping pixels.
  void drawOnce(QPainter& painter, double state, QImage& scratch);
  /// Paints the part inside `area`, which lies in the bounds, over what is there. Between two whole numbers the two
  /// states are mixed in `scratch`, which is as large as the bounds at least.
  void draw(QPainter& painter, const QRect& area, double state, QImage& scratch);

 private:
  struct Pixels {
    QImage image;
    std::optional<std::size_t> state;
  };

  const QImage& pixels(std::size_t state);
  void render(QImage& image, std::size_t state) const;

  QRect bounds_;
  std::vector<std::vector<PreparedCommand>> states_;
  std::array<Pixels, 2> kept_;  // even and odd states
};

}  // namespace rondora
