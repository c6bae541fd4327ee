#include "ui/qt/painting/prepared_layer.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "ui/painting/text_halo.h"
#include "ui/qt/interface/qt_conversions.h"

namespace rondora {

namespace {

constexpr double kMaxIconSide = 8192;
constexpr int kMaxHaloSide = 2048;
/// The titles of a usual ring are all laid out when it opens.
constexpr std::size_t kMaxStatesLaidOut = 100;

PixelBuffer buffer(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          static_cast<int>(image.bytesPerLine() / 4)};
}

QImage iconImage(const IconCommand& command, double scale, IconImages& icons) {
  const QRectF rect = toQRect(command.rect, scale);
  return icons.image(command, static_cast<int>(std::lround(std::min({rect.width(), rect.height(), kMaxIconSide}))));
}

PreparedCommand haloed(const TextCommand& command, double scale) {
  const int reach = std::max(1, static_cast<int>(std::lround(command.halo->width * scale)));
  const QRect area = toPixelRect(command.rect, scale).adjusted(-reach, -reach, reach, reach);
  QImage letters(area.size().boundedTo({kMaxHaloSide, kMaxHaloSide}), QImage::Format_ARGB32_Premultiplied);
  letters.fill(Qt::transparent);
  QPainter painter(&letters);
  painter.translate(-area.topLeft());
  TextCommand opaque = command;
  opaque.color.alpha = 1;
  PreparedText(opaque, scale).paint(painter);
  painter.end();
  drawWithHalo(buffer(letters), command.color, command.halo->color, reach);
  return PreparedIcon{std::move(letters), area.topLeft()};
}

PreparedCommand laidOut(const TextCommand& command, double scale) {
  if (command.halo) return haloed(command, scale);
  return std::make_unique<PreparedText>(command, scale);
}

struct CommandPreparer {
  IconImages& icons;
  double scale;
  bool leavesTexts = false;

  PreparedCommand operator()(const FillCommand& command) const {
    const auto* backdrop = std::get_if<BackdropPaint>(&command.paint);
    return PreparedFill{toQPainterPath(command.path, scale), toQBrush(command.paint, scale),
                        toQPainterPath(command.clip, scale),
                        backdrop != nullptr ? std::optional(*backdrop) : std::nullopt};
  }
  PreparedCommand operator()(const StrokeCommand& command) const {
    const QPen pen(toQBrush(command.paint, scale), command.width * scale, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin);
    return PreparedStroke{toQPainterPath(command.path, scale), pen};
  }
  PreparedCommand operator()(const IconCommand& command) const {
    QImage image = iconImage(command, scale, icons);
    const QPointF corner = toQRect(command.rect, scale).center() - QPointF(image.width() / 2.0, image.height() / 2.0);
    return PreparedIcon{std::move(image), corner.toPoint()};
  }
  PreparedCommand operator()(const TextCommand& command) const {
    if (leavesTexts) return std::make_unique<PendingText>(PendingText{command, scale});
    return laidOut(command, scale);
  }
};

struct CommandPainter {
  QPainter& painter;

  void operator()(const PreparedFill& fill) const {
    if (fill.clip.isEmpty()) {
      painter.fillPath(fill.path, fill.brush);
      return;
    }
    painter.save();
    painter.setClipPath(fill.clip);
    painter.fillPath(fill.path, fill.brush);
    painter.restore();
  }
  void operator()(const PreparedStroke& stroke) const { painter.strokePath(stroke.path, stroke.pen); }
  void operator()(const PreparedIcon& icon) const {
    if (!icon.image.isNull()) painter.drawImage(icon.position, icon.image);
  }
  void operator()(const std::unique_ptr<PreparedText>& text) const { text->paint(painter); }
  void operator()(const std::unique_ptr<PendingText>&) const {}
};

void paint(QPainter& painter, const std::vector<PreparedCommand>& commands) {
  painter.setRenderHint(QPainter::Antialiasing);
  for (const PreparedCommand& command : commands) std::visit(CommandPainter{painter}, command);
}

}  // namespace

PreparedLayer::PreparedLayer(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons, QSize pictureSize)
    : bounds_(toPixelRect(layer.bounds, pixelsPerPoint) & QRect({0, 0}, pictureSize)),
      leavesTexts_(layer.states.size() > kMaxStatesLaidOut) {
  states_.reserve(layer.states.size());
  for (const DisplayList& state : layer.states) {
    const CommandPreparer preparer{icons, pixelsPerPoint, leavesTexts_ && !states_.empty()};
    auto& commands = states_.emplace_back();
    commands.reserve(state.size());
    for (const DisplayCommand& command : state) commands.push_back(std::visit(preparer, command));
  }
}

bool PreparedLayer::hasIconsOf(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons) const {
  for (std::size_t state = 0; state < states_.size(); ++state) {
    for (std::size_t i = 0; i < states_[state].size(); ++i) {
      const auto* wanted = std::get_if<IconCommand>(&layer.states[state][i]);
      const auto* icon = std::get_if<PreparedIcon>(&states_[state][i]);
      if (wanted != nullptr && icon->image != iconImage(*wanted, pixelsPerPoint, icons)) return false;
    }
  }
  return true;
}

bool PreparedLayer::refreshIcons(const PictureLayer& layer, double pixelsPerPoint, IconImages& icons) {
  if (hasIconsOf(layer, pixelsPerPoint, icons)) return false;
  const CommandPreparer preparer{icons, pixelsPerPoint};
  for (std::size_t state = 0; state < states_.size(); ++state) {
    for (std::size_t i = 0; i < states_[state].size(); ++i) {
      const auto* wanted = std::get_if<IconCommand>(&layer.states[state][i]);
      if (wanted != nullptr) states_[state][i] = preparer(*wanted);
    }
  }
  for (Pixels& cached : cached_) cached.state.reset();
  return true;
}

void PreparedLayer::setBackdrop(const std::function<QBrush(const BackdropPaint&)>& backdropFor) {
  for (auto& commands : states_) {
    for (PreparedCommand& command : commands) {
      auto* fill = std::get_if<PreparedFill>(&command);
      if (fill != nullptr && fill->backdrop) fill->brush = backdropFor(*fill->backdrop);
    }
  }
}

void PreparedLayer::layOutTexts(double state) {
  if (!leavesTexts_ || state <= 0) return;
  for (const double near : {std::floor(state), std::ceil(state)}) {
    if (!(near < static_cast<double>(states_.size()))) return;
    for (PreparedCommand& command : states_[static_cast<std::size_t>(near)]) {
      const auto* pending = std::get_if<std::unique_ptr<PendingText>>(&command);
      if (pending != nullptr) command = laidOut((*pending)->command, (*pending)->scale);
    }
  }
}

void PreparedLayer::allocatePixels() {
  for (std::size_t i = 0; i < std::min(cached_.size(), states_.size()); ++i) {
    cached_[i].image = QImage(bounds_.size(), QImage::Format_ARGB32_Premultiplied);
  }
}

void PreparedLayer::render(QImage& image, std::size_t state) const {
  image.fill(Qt::transparent);
  QPainter painter(&image);
  painter.translate(-bounds_.topLeft());
  paint(painter, states_[state]);
}

const QImage& PreparedLayer::pixels(std::size_t state) {
  Pixels& cached = cached_[state % cached_.size()];
  if (cached.state != state) {
    render(cached.image, state);
    cached.state = state;
  }
  return cached.image;
}

void PreparedLayer::drawOnce(QPainter& painter, double state, QImage& scratch) {
  const auto whole = static_cast<std::size_t>(std::max(state, 0.0));
  if (static_cast<double>(whole) != state || whole >= states_.size()) return draw(painter, bounds_, state, scratch);
  painter.save();
  painter.setClipRect(bounds_);
  paint(painter, states_[whole]);
  painter.restore();
}

void PreparedLayer::draw(QPainter& painter, const QRect& area, double state, QImage& scratch) {
  if (states_.empty() || area.isEmpty()) return;
  const double last = static_cast<double>(states_.size() - 1);
  const double place = std::clamp(state, 0.0, last);
  const auto lower = static_cast<std::size_t>(place);
  const double share = place - static_cast<double>(lower);
  const QRect part = area.translated(-bounds_.topLeft());
  if (share <= 0) {
    painter.drawImage(area.topLeft(), pixels(lower), part);
    return;
  }
  QPainter mixer(&scratch);
  mixer.setCompositionMode(QPainter::CompositionMode_Source);
  mixer.drawImage(part.topLeft(), pixels(lower), part);
  mixer.setOpacity(share);
  mixer.drawImage(part.topLeft(), pixels(lower + 1), part);
  mixer.end();
  painter.drawImage(area.topLeft(), scratch, part);
}

}  // namespace rondora
