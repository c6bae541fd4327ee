#include "ui/qt/painting/drawn_picture.h"

#include <QPainter>
#include <algorithm>
#include <utility>

#include "ui/painting/frosted_glass.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/interface/qt_conversions.h"
#include "ui/qt/painting/undivided_painting.h"

namespace rondora {
namespace {

/// No panel is larger; a larger picture is cut off.
constexpr int kMaxSide = 8192;
/// Stands for the state in which a layer is shown when its pixels are no longer right.
constexpr double kOutdated = -1;

QSize pixelSize(Size size, double scale) {
  return toPixelRect({{0, 0}, size}, scale).size().expandedTo({1, 1}).boundedTo({kMaxSide, kMaxSide});
}

QImage blankImage(QSize size) {
  QImage image(size, QImage::Format_ARGB32_Premultiplied);
  image.fill(Qt::transparent);
  return image;
}

QImage wrap(PixelBuffer buffer) {
  return QImage(reinterpret_cast<uchar*>(buffer.pixels), buffer.width, buffer.height,
                qsizetype{buffer.stride} * static_cast<qsizetype>(sizeof(std::uint32_t)),
                QImage::Format_ARGB32_Premultiplied);
}

/// Compares from the last layer: its titles differ between most rings.
bool isSame(const Picture& a, const Picture& b) {
  return a.size == b.size && a.anchor == b.anchor &&
         std::equal(a.layers.rbegin(), a.layers.rend(), b.layers.rbegin(), b.layers.rend());
}

PixelBuffer buffer(QImage& image) {
  return {reinterpret_cast<std::uint32_t*>(image.bits()), image.width(), image.height(),
          static_cast<int>(image.bytesPerLine() / 4)};
}

}  // namespace

DrawnPicture::DrawnPicture(Picture picture, double pixelsPerPoint, IconImages& icons)
    : picture_(std::move(picture)),
      pixelsPerPoint_(pixelsPerPoint),
      font_(interfaceFontFor({})),
      size_(pixelSize(picture_.size, pixelsPerPoint)) {
  layers_.reserve(picture_.layers.size());
  for (const PictureLayer& layer : picture_.layers) layers_.emplace_back(layer, pixelsPerPoint, icons, size_);
  shown_.reserve(layers_.size());
  changed_.reserve(layers_.size() + 1);
}

bool DrawnPicture::isOf(const Picture& picture, double pixelsPerPoint, IconImages& icons) const {
  if (pixelsPerPoint != pixelsPerPoint_ || !isSame(picture, picture_) || font_ != interfaceFontFor({})) return false;
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    if (!layers_[i].hasIconsOf(picture.layers[i], pixelsPerPoint, icons)) return false;
  }
  return true;
}

bool DrawnPicture::adopt(Picture& picture, double pixelsPerPoint, IconImages& icons) {
  constexpr std::size_t kFew = 2;  // such as the hub's
  if (pixelsPerPoint != pixelsPerPoint_ || picture.size != picture_.size || picture.anchor != picture_.anchor ||
      picture.layers.size() != layers_.size() || font_ != interfaceFontFor({})) {
    return false;
  }
  std::vector<std::size_t> changed;
  for (std::size_t i = layers_.size(); i-- > 0 && changed.size() <= kFew;) {
    const PictureLayer& old = picture_.layers[i];
    const PictureLayer& wanted = picture.layers[i];
    const bool isSameLayer = old == wanted;
    if (!isSameLayer && (old.bounds != wanted.bounds || old.states[0] != wanted.states[0])) return false;
    if (!layers_[i].hasIconsOf(old, pixelsPerPoint, icons)) return false;
    if (!isSameLayer) changed.push_back(i);
  }
  if (changed.size() > kFew) return false;
  for (const std::size_t i : changed) layers_[i] = PreparedLayer(picture.layers[i], pixelsPerPoint, icons, size_);
  picture_ = std::move(picture);
  return true;
}

std::size_t DrawnPicture::byteCount() const {
  constexpr std::size_t kBytesPerState = 4096;
  std::size_t states = 0;
  for (const PictureLayer& layer : picture_.layers) states += layer.states.size();
  return states * kBytesPerState + (prerendered_ ? prerendered_->byteCount() : 0);
}

/// The distinct backdrops of the picture.
std::vector<const BackdropPaint*> DrawnPicture::backdrops() const {
  std::vector<const BackdropPaint*> found;
  for (const PictureLayer& layer : picture_.layers) {
    for (const DisplayList& state : layer.states) {
      for (const DisplayCommand& command : state) {
        const auto* fill = std::get_if<FillCommand>(&command);
        const auto* paint = fill != nullptr ? std::get_if<BackdropPaint>(&fill->paint) : nullptr;
        const auto isSame = [paint](const BackdropPaint* other) { return *other == *paint; };
        if (paint != nullptr && std::none_of(found.begin(), found.end(), isSame)) found.push_back(paint);
      }
    }
  }
  return found;
}

void DrawnPicture::prerender() {
  if (prerendered_ || isShown_ || backdrops().size() != 1) return;
  paintUndivided([this] { prerendered_.emplace(drawnOnGlass(Qt::black), drawnOnGlass(Qt::white)); });
  forgetBackdrop();
}

QImage DrawnPicture::drawnOnGlass(const QBrush& backdrop) {
  QImage image = blankImage(size_);
  QPainter painter(&image);
  for (PreparedLayer& layer : layers_) {
    layer.setBackdrop([&](const BackdropPaint&) { return backdrop; });
    layer.drawOnce(painter, 0, scratch_);
  }
  return image;
}

void DrawnPicture::begin() {
  isShown_ = true;
  QSize largest;
  for (PreparedLayer& layer : layers_) {
    layer.allocatePixels();
    if (layer.hasStates()) largest = largest.expandedTo(layer.bounds().size());
  }
  scratch_ = QImage(largest, QImage::Format_ARGB32_Premultiplied);
}

void DrawnPicture::end() {
  for (PreparedLayer& layer : layers_) layer.freePixels();
  forgetBackdrop();
  composed_ = scratch_ = {};
  shown_.clear();
  isShown_ = false;
}

/// From here on the glass is imitated, and no pixels of the screen are held.
void DrawnPicture::forgetBackdrop() {
  backdrops_.clear();
  for (PreparedLayer& layer : layers_) {
    layer.setBackdrop([this](const BackdropPaint& paint) { return toQBrush(paint, pixelsPerPoint_); });
  }
}

void DrawnPicture::setSnapshot(const PixelBuffer& screen) {
  for (const BackdropPaint* paint : backdrops()) {
    const Frost frost{paint->blurRadius * pixelsPerPoint_, paint->saturation, paint->brightest, paint->veil};
    backdrops_.push_back({paint, FrostedGlass(screen, frost), {}});
  }
}

/// Computes the pixels of the backdrops at the first use and lets the layers paint with them.
void DrawnPicture::useBackdrops() {
  if (backdrops_.empty() || !backdrops_.front().image.isNull()) return;
  for (Backdrop& backdrop : backdrops_) {
    backdrop.image = QImage(backdrop.glass.width(), backdrop.glass.height(), QImage::Format_RGB32);
    backdrop.glass.copyTo(buffer(backdrop.image));
  }
  for (PreparedLayer& layer : layers_) {
    layer.setBackdrop([this](const BackdropPaint& wanted) {
      const auto isWanted = [&](const Backdrop& backdrop) { return *backdrop.paint == wanted; };
      return QBrush(std::find_if(backdrops_.begin(), backdrops_.end(), isWanted)->image);
    });
  }
}

void DrawnPicture::paint(std::span<const double> states, const PictureView& view, PixelBuffer target) {
  if (showPrerendered(states, view, target)) return;
  for (std::size_t i = 0; i < std::min(layers_.size(), states.size()); ++i) layers_[i].layOutTexts(states[i]);
  beginComposing();
  const auto paint = [&] {
    compose(states);
    show(view, target);
  };
  isPlain(view) && isComposed(states) ? show(view, target) : paintUndivided(paint);
}

/// Composes the first frame from the pre-rendered pixels. Returns false when that is not possible.
bool DrawnPicture::showPrerendered(std::span<const double> states, const PictureView& view, PixelBuffer target) {
  const auto isFirst = [](double state) { return state == 0; };
  const bool isWhole = toPixelRect(view.dirty, view.pixelsPerPoint).contains(QRect({0, 0}, size_));
  return prerendered_ && composed_.isNull() && backdrops_.size() == 1 && isPlain(view) && isWhole &&
         std::all_of(states.begin(), states.end(), isFirst) && prerendered_->compose(backdrops_.front().glass, target);
}

/// Starts from the pre-rendered pixels, in which all layers are in state 0.
void DrawnPicture::beginComposing() {
  if (!composed_.isNull()) return;
  composed_ = QImage(size_, QImage::Format_ARGB32_Premultiplied);
  if (prerendered_ && backdrops_.size() == 1 && prerendered_->compose(backdrops_.front().glass, buffer(composed_))) {
    shown_.assign(layers_.size(), 0);
  } else {
    composed_.fill(Qt::transparent);
  }
}

void DrawnPicture::prepareChanges() {
  beginComposing();
  useBackdrops();
}

bool DrawnPicture::refreshIcons(IconImages& icons) {
  bool hasChanged = false;
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    if (!layers_[i].refreshIcons(picture_.layers[i], pixelsPerPoint_, icons)) continue;
    hasChanged = true;
    if (i < shown_.size()) shown_[i] = kOutdated;
  }
  if (hasChanged) prerendered_.reset();
  return hasChanged;
}

bool DrawnPicture::isPlain(const PictureView& view) const {
  return view.scale == 1 && view.opacity >= 1 && view.pixelsPerPoint == pixelsPerPoint_;
}

bool DrawnPicture::isComposed(std::span<const double> states) const {
  return std::equal(shown_.begin(), shown_.end(), states.begin(), states.end());
}

void DrawnPicture::show(const PictureView& view, PixelBuffer target) const {
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

void DrawnPicture::drawPlain(QPainter& painter, QRect dirty) const {
  if (!composed_.rect().contains(dirty)) painter.fillRect(dirty, Qt::transparent);
  painter.drawImage(dirty.topLeft(), composed_, dirty);
}

void DrawnPicture::drawScaled(QPainter& painter, const PictureView& view, QRect dirty) const {
  painter.fillRect(dirty, Qt::transparent);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  painter.setRenderHint(QPainter::SmoothPixmapTransform);
  painter.setOpacity(std::clamp(view.opacity, 0.0, 1.0));
  const QPointF anchor = toQPoint(picture_.anchor, view.pixelsPerPoint);
  const double toView = view.pixelsPerPoint / pixelsPerPoint_;
  painter.translate(anchor);
  painter.scale(view.scale, view.scale);
  painter.translate(-anchor);
  painter.scale(toView, toView);
  painter.drawImage(QPoint(0, 0), composed_);
}

/// Updates `composed_` to the states.
void DrawnPicture::compose(std::span<const double> states) {
  if (shown_.empty()) return composeFirst(states);
  changed_.clear();
  for (std::size_t i = 0; i < std::min(layers_.size(), states.size()); ++i) {
    if (shown_[i] != states[i]) changed_.push_back(layers_[i].bounds());
    shown_[i] = states[i];
  }
  if (!changed_.empty()) useBackdrops();
  for (const QRect& changed : changed_) draw(changed);
}

void DrawnPicture::composeFirst(std::span<const double> states) {
  shown_.assign(states.begin(), states.end());
  shown_.resize(layers_.size(), 0);
  useBackdrops();
  QPainter painter(&composed_);
  for (std::size_t i = 0; i < layers_.size(); ++i) layers_[i].drawOnce(painter, shown_[i], scratch_);
}

void DrawnPicture::draw(const QRect& changed) {
  if (changed.isEmpty()) return;
  QPainter painter(&composed_);
  painter.setCompositionMode(QPainter::CompositionMode_Source);
  painter.fillRect(changed, Qt::transparent);
  painter.setCompositionMode(QPainter::CompositionMode_SourceOver);
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    layers_[i].draw(painter, layers_[i].bounds() & changed, shown_[i], scratch_);
  }
}

}  // namespace rondora
