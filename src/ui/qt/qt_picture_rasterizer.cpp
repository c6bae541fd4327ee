#include "ui/qt/qt_picture_rasterizer.h"

#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <memory>
#include <utility>
#include <vector>

#include "ui/qt/prepared_layer.h"
#include "ui/qt/qt_conversions.h"
#include "ui/qt/undivided_painting.h"

namespace rondora {

namespace {

/// No panel is larger; a picture that claims to be is cut off.
constexpr int kLargestSide = 8192;

QImage blankImage(Size size, double scale) {
  const QRect rect = toPixelRect({{0, 0}, size}, scale);
  QImage image(rect.size().expandedTo({1, 1}).boundedTo({kLargestSide, kLargestSide}),
               QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QImage wrap(PixelBuffer buffer) {
  return QImage(reinterpret_cast<uchar*>(buffer.pixels), buffer.width, buffer.height,
                qsizetype{buffer.stride} * static_cast<qsizetype>(sizeof(std::uint32_t)),
                QImage::Format_ARGB32_Premultiplied);
}

class QtPreparedPicture : public PreparedPicture {
 public:
  QtPreparedPicture(const Picture& picture, double pixelsPerPoint, IconImages& icons)
      : pixelsPerPoint_(pixelsPerPoint), anchor_(picture.anchor), composed_(blankImage(picture.size, pixelsPerPoint)) {
    QSize largest;
    layers_.reserve(picture.layers.size());
    for (const PictureLayer& layer : picture.layers) {
      const PreparedLayer& prepared = layers_.emplace_back(layer, pixelsPerPoint, icons, composed_.size());
      if (prepared.hasStates()) largest = largest.expandedTo(prepared.bounds().size());
    }
    scratch_ = QImage(largest, QImage::Format_ARGB32_Premultiplied);
    shown_.reserve(layers_.size());
    changed_.reserve(layers_.size() + 1);
  }

  void setBackdrop(const PixelBuffer& screen) override {
    for (PreparedLayer& layer : layers_) layer.setBackdrop(screen, pixelsPerPoint_);
  }

  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) override {
    const auto paint = [&] {
      compose(states);
      show(view, target);
    };
    isPlain(view) && isComposed(states) ? show(view, target) : paintUndivided(paint);
  }

 private:
  bool isPlain(const PictureView& view) const {
    return view.scale == 1 && view.opacity >= 1 && view.pixelsPerPoint == pixelsPerPoint_;
  }
  bool isComposed(std::span<const double> states) const {
    return std::equal(shown_.begin(), shown_.end(), states.begin(), states.end());
  }

  void show(const PictureView& view, PixelBuffer target) const {
    QImage image = wrap(target);
    const QRect dirty = toPixelRect(view.dirty, view.pixelsPerPoint) & image.rect();
    if (dirty.isEmpty()) return;
    QPainter painter(&image);
    painter.setClipRect(dirty);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    if (isPlain(view)) {
      drawPlain(painter, dirty);
    } else {
      drawScaled(painter, view, dirty);
    }
  }

  void drawPlain(QPainter& painter, QRect dirty) const {
    if (!composed_.rect().contains(dirty)) painter.fillRect(dirty, Qt::transparent);
    painter.drawImage(dirty.topLeft(), composed_, dirty);
  }

  void drawScaled(QPainter& painter, const PictureView& view, QRect dirty) const {
    painter.fillRect(dirty, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    painter.setRenderHint(QPainter::SmoothPixmapTransform);
    painter.setOpacity(std::clamp(view.opacity, 0.0, 1.0));
    const QPointF anchor = toQPoint(anchor_, view.pixelsPerPoint);
    const double toView = view.pixelsPerPoint / pixelsPerPoint_;
    painter.translate(anchor);
    painter.scale(view.scale, view.scale);
    painter.translate(-anchor);
    painter.scale(toView, toView);
    painter.drawImage(QPoint(0, 0), composed_);
  }

  /// Brings `composed_` up to date with the states.
  void compose(std::span<const double> states) {
    if (shown_.empty()) return composeFirst(states);
    changed_.clear();
    for (std::size_t i = 0; i < std::min(layers_.size(), states.size()); ++i) {
      if (shown_[i] != states[i]) changed_.push_back(layers_[i].bounds());
      shown_[i] = states[i];
    }
    for (const QRect& changed : changed_) draw(changed);
  }

  void composeFirst(std::span<const double> states) {
    shown_.assign(states.begin(), states.end());
    shown_.resize(layers_.size(), 0);
    QPainter painter(&composed_);
    for (std::size_t i = 0; i < layers_.size(); ++i) layers_[i].drawOnce(painter, shown_[i], scratch_);
  }

  void draw(const QRect& changed) {
    if (changed.isEmpty()) return;
    QPainter painter(&composed_);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(changed, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (std::size_t i = 0; i < layers_.size(); ++i) {
      layers_[i].draw(painter, layers_[i].bounds() & changed, shown_[i], scratch_);
    }
  }

  double pixelsPerPoint_;
  Point anchor_;
  std::vector<PreparedLayer> layers_;
  /// The picture in the states `shown_`, at its own scale and opacity.
  QImage composed_;
  QImage scratch_;
  std::vector<double> shown_;
  std::vector<QRect> changed_;
};

/// Something of every kind that a ring may hold.
Picture sampler() {
  const Rect rect{{0, 0}, {48, 48}};
  DisplayList list;
  for (const char* symbol : {"star.fill", "hare.fill"}) list.push_back(IconCommand{IconKind::symbol, symbol, rect, {}});
  list.push_back(IconCommand{IconKind::emoji, "🙂", rect, {}});
  for (const FontWeight weight : {FontWeight::regular, FontWeight::semibold}) {
    list.push_back(TextCommand{"0 Aa", rect, 16, weight, TextAlignment::center, 1, {}});
  }
  return {rect.size, {}, {{rect, {std::move(list)}}}};
}

}  // namespace

void QtPictureRasterizer::warmUp() {
  std::array<std::uint32_t, 48 * 48> pixels{};
  const std::array<double, 1> states{};
  prepare(sampler(), 1)->paint(states, {1, 1, 1, {{0, 0}, {48, 48}}}, {pixels.data(), 48, 48, 48});
  QIcon::fromTheme("folder").pixmap(48);
}

std::unique_ptr<PreparedPicture> QtPictureRasterizer::prepare(Picture picture, double pixelsPerPoint) {
  return std::make_unique<QtPreparedPicture>(picture, pixelsPerPoint, icons_);
}

}  // namespace rondora
