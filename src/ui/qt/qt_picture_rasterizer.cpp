#include "ui/qt/qt_picture_rasterizer.h"

#include <QIcon>
#include <QImage>
#include <QPainter>
#include <QPen>
#include <QPixmap>
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>
#include <memory>
#include <utility>
#include <variant>
#include <vector>

#include "ui/qt/prepared_text.h"
#include "ui/qt/qt_conversions.h"

namespace rondora {

namespace {

/// No panel is larger; a picture that claims to be is cut off.
constexpr int kLargestSide = 8192;

struct PreparedFill {
  QPainterPath path;
  QBrush brush;
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

struct CommandPreparer {
  IconImages& icons;
  double scale;

  PreparedCommand operator()(const FillCommand& command) const {
    return PreparedFill{toQPainterPath(command.path, scale), toQBrush(command.paint, scale)};
  }
  PreparedCommand operator()(const StrokeCommand& command) const {
    const QPen pen(toQBrush(command.paint, scale), command.width * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    return PreparedStroke{toQPainterPath(command.path, scale), pen};
  }
  PreparedCommand operator()(const IconCommand& command) const {
    const QRectF rect = toQRect(command.rect, scale);
    const auto side = static_cast<int>(std::lround(std::min({rect.width(), rect.height(), double{kLargestSide}})));
    QImage image = icons.image(command, side);
    const QPointF corner = rect.center() - QPointF(image.width() / 2.0, image.height() / 2.0);
    return PreparedIcon{std::move(image), corner.toPoint()};
  }
  PreparedCommand operator()(const TextCommand& command) const {
    return std::make_unique<PreparedText>(command, scale);
  }
};

struct CommandPainter {
  QPainter& painter;

  void operator()(const PreparedFill& fill) const { painter.fillPath(fill.path, fill.brush); }
  void operator()(const PreparedStroke& stroke) const { painter.strokePath(stroke.path, stroke.pen); }
  void operator()(const PreparedIcon& icon) const {
    if (!icon.image.isNull()) painter.drawImage(icon.position, icon.image);
  }
  void operator()(const std::unique_ptr<PreparedText>& text) const { text->paint(painter); }
};

struct PreparedLayer {
  QRect bounds;
  std::vector<std::vector<PreparedCommand>> states;
};

PreparedLayer prepareLayer(const PictureLayer& layer, const CommandPreparer& preparer) {
  PreparedLayer result{toPixelRect(layer.bounds, preparer.scale), {}};
  result.states.reserve(layer.states.size());
  for (const DisplayList& state : layer.states) {
    auto& commands = result.states.emplace_back();
    for (const DisplayCommand& command : state) commands.push_back(std::visit(preparer, command));
  }
  return result;
}

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
    const CommandPreparer preparer{icons, pixelsPerPoint};
    layers_.reserve(picture.layers.size());
    for (const PictureLayer& layer : picture.layers) layers_.push_back(prepareLayer(layer, preparer));
  }

  void paint(std::span<const std::size_t> states, const PictureView& view, PixelBuffer target) override {
    compose(states);
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

 private:
  bool isPlain(const PictureView& view) const {
    return view.scale == 1 && view.opacity >= 1 && view.pixelsPerPoint == pixelsPerPoint_;
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
  void compose(std::span<const std::size_t> states) {
    changed_.clear();
    if (shown_.empty()) changed_.push_back(composed_.rect());
    shown_.resize(layers_.size(), 0);
    for (std::size_t i = 0; i < std::min(layers_.size(), states.size()); ++i) {
      if (shown_[i] != states[i]) changed_.push_back(layers_[i].bounds & composed_.rect());
      shown_[i] = states[i];
    }
    for (const QRect& changed : changed_) draw(changed);
  }

  void draw(const QRect& changed) {
    if (changed.isEmpty()) return;
    QPainter painter(&composed_);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setCompositionMode(QPainter::CompositionMode_Source);
    painter.fillRect(changed, Qt::transparent);
    painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
    for (std::size_t i = 0; i < layers_.size(); ++i) {
      const QRect visible = layers_[i].bounds & changed;
      if (visible.isEmpty() || shown_[i] >= layers_[i].states.size()) continue;
      painter.setClipRect(visible);
      for (const PreparedCommand& command : layers_[i].states[shown_[i]]) std::visit(CommandPainter{painter}, command);
    }
  }

  double pixelsPerPoint_;
  Point anchor_;
  std::vector<PreparedLayer> layers_;
  /// The picture in the states `shown_`, at its own scale and opacity.
  QImage composed_;
  std::vector<std::size_t> shown_;
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
  const std::array<std::size_t, 1> states{};
  prepare(sampler(), 1)->paint(states, {1, 1, 1, {{0, 0}, {48, 48}}}, {pixels.data(), 48, 48, 48});
  QIcon::fromTheme("folder").pixmap(48);
}

std::unique_ptr<PreparedPicture> QtPictureRasterizer::prepare(Picture picture, double pixelsPerPoint) {
  return std::make_unique<QtPreparedPicture>(picture, pixelsPerPoint, icons_);
}

}  // namespace rondora
