#include "ui/appkit/painting/prepared_layer.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "ui/painting/text_halo.h"

namespace rondora::appkit {
namespace {

constexpr double kMaxIconSide = 8192;
constexpr int kMaxHaloSide = 2048;

void blend(CGContextRef context, const Image& image, CGRect rect, double share, CGBlendMode mode) {
  CGContextSetBlendMode(context, mode);
  CGContextSetAlpha(context, share);
  drawImage(context, image, rect);
}

}  // namespace

PreparedLayer::PreparedLayer(const PictureLayer& layer, double pixelsPerPoint, PixelRect pictureBounds)
    : layer_(layer),
      pixelsPerPoint_(pixelsPerPoint),
      bounds_(intersection(toPixelRect(layer.bounds, pixelsPerPoint), pictureBounds)),
      extras_(layer.states.size()) {}

PreparedLayer::Extra PreparedLayer::iconExtra(const IconCommand& command, IconImages& icons) const {
  const double side = std::min(command.rect.size.width, command.rect.size.height) * pixelsPerPoint_;
  Image image = icons.image(command, static_cast<int>(std::lround(std::clamp(side, 0.0, kMaxIconSide))));
  const PixelRect size = sizeOf(image);
  const Point center = command.rect.center() * pixelsPerPoint_;
  return {std::move(image), {std::round(center.x - size.width / 2.0), std::round(center.y - size.height / 2.0)}, {}};
}

PreparedLayer::Extra PreparedLayer::textExtra(const TextCommand& command) const {
  if (!command.halo) return {{}, {}, std::make_unique<PreparedText>(command)};
  const int reach = std::max(1, static_cast<int>(std::lround(command.halo->width * pixelsPerPoint_)));
  const PixelRect letters = toPixelRect(command.rect, pixelsPerPoint_);
  const Point corner{static_cast<double>(letters.x - reach), static_cast<double>(letters.y - reach)};
  Bitmap bitmap(std::min(letters.width + 2 * reach, kMaxHaloSide), std::min(letters.height + 2 * reach, kMaxHaloSide));
  CGContextTranslateCTM(bitmap.context(), -corner.x, -corner.y);
  CGContextScaleCTM(bitmap.context(), pixelsPerPoint_, pixelsPerPoint_);
  TextCommand opaque = command;
  opaque.color.alpha = 1;
  PreparedText(opaque).paint(bitmap.context());
  drawWithHalo(bitmap.buffer(), command.color, command.halo->color, reach);
  return {bitmap.image(), corner, {}};
}

void PreparedLayer::prepare(std::size_t state, IconImages& icons) {
  if (extras_[state]) return;
  std::vector<Extra>& extras = extras_[state].emplace();
  for (const DisplayCommand& command : layer_.states[state]) {
    if (const auto* icon = std::get_if<IconCommand>(&command)) {
      extras.push_back(iconExtra(*icon, icons));
    } else if (const auto* text = std::get_if<TextCommand>(&command)) {
      extras.push_back(textExtra(*text));
    } else {
      extras.emplace_back();
    }
  }
}

bool PreparedLayer::refreshIcons(IconImages& icons) {
  bool hasChanged = false;
  for (std::size_t state = 0; state < extras_.size(); ++state) {
    if (!extras_[state]) continue;
    for (std::size_t i = 0; i < extras_[state]->size(); ++i) {
      const auto* icon = std::get_if<IconCommand>(&layer_.states[state][i]);
      if (icon == nullptr) continue;
      Extra present = iconExtra(*icon, icons);
      Extra& shown = (*extras_[state])[i];
      hasChanged = hasChanged || present.image.get() != shown.image.get();
      shown = std::move(present);
    }
  }
  if (hasChanged) freePixels();
  return hasChanged;
}

Image PreparedLayer::render(std::size_t state, std::span<const GlassImage> glass) const {
  Bitmap bitmap(bounds_.width, bounds_.height);
  CGContextRef context = bitmap.context();
  CGContextTranslateCTM(context, -bounds_.x, -bounds_.y);
  CGContextScaleCTM(context, pixelsPerPoint_, pixelsPerPoint_);
  const ShapePainter shapes{context, pixelsPerPoint_, glass};
  for (std::size_t i = 0; i < layer_.states[state].size(); ++i) {
    const DisplayCommand& command = layer_.states[state][i];
    const Extra& extra = (*extras_[state])[i];
    if (const auto* fill = std::get_if<FillCommand>(&command)) shapes.fill(*fill);
    if (const auto* stroke = std::get_if<StrokeCommand>(&command)) shapes.stroke(*stroke);
    if (extra.text) extra.text->paint(context);
    const PixelRect size = sizeOf(extra.image);
    const Point corner = extra.corner * (1 / pixelsPerPoint_);
    drawImage(context, extra.image,
              {{corner.x, corner.y}, {size.width / pixelsPerPoint_, size.height / pixelsPerPoint_}});
  }
  return bitmap.image();
}

const Image& PreparedLayer::pixels(std::size_t state, IconImages& icons, std::span<const GlassImage> glass) {
  Pixels& latest = latest_[state % latest_.size()];
  if (latest.state != state) {
    prepare(state, icons);
    latest = {state, render(state, glass)};
  }
  return latest.image;
}

void PreparedLayer::draw(CGContextRef context, double state, IconImages& icons, std::span<const GlassImage> glass) {
  if (layer_.states.empty() || bounds_.isEmpty()) return;
  const double place = std::clamp(state, 0.0, static_cast<double>(layer_.states.size() - 1));
  const auto lower = static_cast<std::size_t>(place);
  const double share = place - static_cast<double>(lower);
  if (share <= 0) return drawImage(context, pixels(lower, icons, glass), toCGRect(bounds_));
  Bitmap mixed(bounds_.width, bounds_.height);
  const CGRect whole = toCGRect(mixed.bounds());
  blend(mixed.context(), pixels(lower, icons, glass), whole, 1 - share, kCGBlendModeNormal);
  blend(mixed.context(), pixels(lower + 1, icons, glass), whole, share, kCGBlendModePlusLighter);
  drawImage(context, mixed.image(), toCGRect(bounds_));
}

}  // namespace rondora::appkit
