#include "ui/appkit/painting/drawn_picture.h"

#include <algorithm>
#include <cmath>
#include <cstdint>
#include <utility>

#include "ui/painting/frosted_glass.h"

namespace rondora::appkit {
namespace {

/// No panel is larger; a larger picture is cut off.
constexpr int kMaxSide = 8192;

Bitmap bitmapFor(Size size, double pixelsPerPoint) {
  const PixelRect pixels = toPixelRect({{0, 0}, size}, pixelsPerPoint);
  return Bitmap(std::min(pixels.width, kMaxSide), std::min(pixels.height, kMaxSide));
}

/// The distinct backdrops of a picture.
std::vector<BackdropPaint> backdropsOf(const Picture& picture) {
  std::vector<BackdropPaint> found;
  for (const PictureLayer& layer : picture.layers) {
    for (const DisplayList& state : layer.states) {
      for (const DisplayCommand& command : state) {
        const auto* fill = std::get_if<FillCommand>(&command);
        const auto* paint = fill != nullptr ? std::get_if<BackdropPaint>(&fill->paint) : nullptr;
        if (paint != nullptr && std::ranges::find(found, *paint) == found.end()) found.push_back(*paint);
      }
    }
  }
  return found;
}

std::uint32_t* rowOf(const PixelBuffer& buffer, int x, int y) {
  return buffer.pixels + static_cast<std::ptrdiff_t>(y) * buffer.stride + x;
}

}  // namespace

DrawnPicture::DrawnPicture(Picture picture, double pixelsPerPoint, IconImages& icons)
    : picture_(std::move(picture)),
      pixelsPerPoint_(pixelsPerPoint),
      icons_(icons),
      composed_(bitmapFor(picture_.size, pixelsPerPoint)) {
  layers_.reserve(picture_.layers.size());
  for (const PictureLayer& layer : picture_.layers) layers_.emplace_back(layer, pixelsPerPoint, composed_.bounds());
}

bool DrawnPicture::isOf(const Picture& picture, double pixelsPerPoint) const {
  return pixelsPerPoint == pixelsPerPoint_ && picture == picture_;
}

std::size_t DrawnPicture::byteCount() const {
  const PixelRect bounds = composed_.bounds();
  return static_cast<std::size_t>(bounds.width) * static_cast<std::size_t>(bounds.height) * sizeof(std::uint32_t);
}

void DrawnPicture::begin() {
  isShown_ = true;
  refreshIcons();
}

void DrawnPicture::end() {
  isShown_ = false;
  for (PreparedLayer& layer : layers_) layer.freePixels();
  if (glass_.empty()) return;
  glass_.clear();
  shown_.clear();
}

void DrawnPicture::prerender() {
  refreshIcons();
  compose(std::vector<double>(layers_.size(), 0));
  for (PreparedLayer& layer : layers_) layer.freePixels();
}

void DrawnPicture::setSnapshot(const PixelBuffer& screen) {
  glass_.clear();
  for (const BackdropPaint& paint : backdropsOf(picture_)) {
    const Frost frost{paint.blurRadius * pixelsPerPoint_, paint.saturation, paint.brightest, paint.veil};
    FrostedGlass glass(screen, frost);
    Bitmap bitmap(glass.width(), glass.height());
    glass.copyTo(bitmap.buffer());
    glass_.push_back({paint, bitmap.image()});
  }
  for (PreparedLayer& layer : layers_) layer.freePixels();
  shown_.clear();
}

bool DrawnPicture::refreshIcons() {
  bool hasChanged = false;
  for (PreparedLayer& layer : layers_) hasChanged = layer.refreshIcons(icons_) || hasChanged;
  if (hasChanged) shown_.clear();
  return hasChanged;
}

void DrawnPicture::paint(std::span<const double> states, const PictureView& view, PixelBuffer target) {
  compose(states);
  const PixelRect dirty =
      intersection(toPixelRect(view.dirty, view.pixelsPerPoint), {0, 0, target.width, target.height});
  if (dirty.isEmpty()) return;
  const bool isPlain = view.scale == 1 && view.opacity >= 1 && view.pixelsPerPoint == pixelsPerPoint_;
  isPlain ? copyTo(target, dirty) : drawScaled(target, dirty, view);
}

void DrawnPicture::compose(std::span<const double> states) {
  const bool isNew = shown_.empty();
  const std::vector<double> before = std::exchange(shown_, {states.begin(), states.end()});
  shown_.resize(layers_.size(), 0);
  if (isNew) return draw(composed_.bounds());
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    if (before[i] != shown_[i]) draw(layers_[i].bounds());
  }
}

void DrawnPicture::draw(const PixelRect& area) {
  if (area.isEmpty()) return;
  CGContextRef context = composed_.context();
  const ContextState state(context);
  CGContextClipToRect(context, toCGRect(area));
  CGContextClearRect(context, toCGRect(area));
  for (std::size_t i = 0; i < layers_.size(); ++i) {
    if (intersection(layers_[i].bounds(), area).isEmpty()) continue;
    layers_[i].draw(context, shown_[i], icons_, glass_);
  }
}

void DrawnPicture::copyTo(PixelBuffer target, const PixelRect& dirty) {
  const PixelBuffer source = composed_.buffer();
  const PixelRect common = intersection(dirty, composed_.bounds());
  for (int y = dirty.y; y < dirty.bottom(); ++y) {
    std::uint32_t* row = rowOf(target, dirty.x, y);
    std::fill_n(row, dirty.width, 0);
    if (!common.isEmpty() && y < common.bottom()) std::copy_n(rowOf(source, common.x, y), common.width, row);
  }
}

void DrawnPicture::drawScaled(PixelBuffer target, const PixelRect& dirty, const PictureView& view) {
  const Context owner = makeContext(target);
  if (!owner) return;
  CGContextRef context = owner.get();
  CGContextClipToRect(context, toCGRect(dirty));
  CGContextClearRect(context, toCGRect(dirty));
  // Each frame of an opening is drawn this way.
  CGContextSetInterpolationQuality(context, kCGInterpolationLow);
  CGContextSetAlpha(context, std::clamp(view.opacity, 0.0, 1.0));
  const Point anchor = picture_.anchor * view.pixelsPerPoint;
  CGContextTranslateCTM(context, anchor.x, anchor.y);
  CGContextScaleCTM(context, view.scale, view.scale);
  CGContextTranslateCTM(context, -anchor.x, -anchor.y);
  CGContextScaleCTM(context, view.pixelsPerPoint / pixelsPerPoint_, view.pixelsPerPoint / pixelsPerPoint_);
  drawImage(context, composed_.image(), toCGRect(composed_.bounds()));
}

}  // namespace rondora::appkit
