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
/// A text that is laid out when it is first shown.
struct PendingText {
  TextCommand command;
  double scale = 1;
};
using PreparedCommand = std::variant<PreparedFill, PreparedStroke, PreparedIcon, std::unique_ptr<PreparedText>,
                                     std::unique_ptr<PendingText>>;

/// One layer of a picture at one scale. Caches the pixels of its two latest states at their first use, so that
/// switching between them only copies. Of a layer with very many states, the texts of all but the first are laid out
/// when `layOutTexts` asks for them. All lengths are pixels.
class PreparedLayer {
 public:
  PreparedLayer(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons, QSize pictureSize);

  QRect bounds() const { return bounds_; }
  bool hasStates() const { return states_.size() > 1; }
  /// Sets the brush of each backdrop in the layer.
  void setBackdrop(const std::function<QBrush(const BackdropPaint&)>& backdropFor);
  /// True when preparing the same layer now would find the same icons.
  bool hasIconsOf(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons) const;
  /// Prepares the icons of the same layer again. False when none is another one.
  bool refreshIcons(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons);
  /// Lays out the pending texts of a state. Main thread.
  void layOutTexts(double state);
  /// Allocates the pixels that `draw` caches; `freePixels` frees them.
  void allocatePixels();
  void freePixels() { cached_ = {}; }
  /// Paints the whole layer without caching pixels.
  void drawOnce(QPainter& painter, double state, QImage& scratch);
  /// Paints the part inside `area`, which lies in the bounds, over the present pixels. A fractional state blends the
  /// two states next to it in `scratch`, which is at least as large as the bounds.
  void draw(QPainter& painter, const QRect& area, double state, QImage& scratch);

 private:
  struct Pixels {
    QImage image;
    std::optional<std::size_t> state;
  };

  const QImage& pixels(std::size_t state);
  void render(QImage& image, std::size_t state) const;

  QRect bounds_;
  bool leavesTexts_;
  std::vector<std::vector<PreparedCommand>> states_;
  std::array<Pixels, 2> cached_;  // even and odd states
};

}  // namespace rondora
