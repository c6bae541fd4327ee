#include "pie/picture/sector_picture.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "base/unicode.h"
#include "icons/icon_reference.h"
#include "model/appearance_fields.h"
#include "pie/geometry/sector_geometry.h"
#include "pie/picture/cat_figure.h"
#include "pie/picture/legibility.h"
#include "pie/picture/ring_glass.h"

namespace rondora {
namespace {

constexpr Color kWhite{1, 1, 1, 1};
constexpr Color kInk{0.09, 0.09, 0.11, 1};
/// The approximate colour of the glass without a snapshot of the screen.
constexpr Color kDarkGlass{0.16, 0.165, 0.18, 1};

/// The colour that dimmed sectors fade to.
constexpr Color kFaded{0.42, 0.43, 0.45, 1};

/// Lies over a dimmed sector, but not over its label.
constexpr Color kVeil = kDarkGlass.withAlpha(0.5);

constexpr double kMinHighlightWidth = 3;  // points, at the rim

double luminance(Color color) { return 0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue; }

Color itemColor(const PieMenuItem& item) {
  return Color::fromHex(item.color).value_or(Color::fromHex(kDefaultItemColor).value_or(kWhite));
}

/// White while it is legible, otherwise dark ink; WCAG 2.1 requires a contrast of 3 for graphics and large text.
Color inkOn(Color background) {
  constexpr double kReadable = 3.1;
  return contrast(kWhite, background) >= kReadable ? kWhite : kInk;
}

/// The colour of stained glass: darkened, light colours most, so that white is legible on all of them.
Color stainOf(Color color) {
  constexpr double kDepth = 1.5;
  constexpr double kLightest = 0.50;
  const auto deeper = [](double component) { return std::pow(component, kDepth); };
  const Color deep{deeper(color.red), deeper(color.green), deeper(color.blue), 1};
  const double excess = luminance(deep) / kLightest;
  return excess <= 1 ? deep : mix({0, 0, 0, 1}, deep, 1 / excess);
}

/// `lower` beneath `upper` in one colour.
Color together(Color lower, Color upper) {
  const double alpha = upper.alpha + lower.alpha * (1 - upper.alpha);
  return mix(lower, upper, upper.alpha / alpha).withAlpha(alpha);
}

}  // namespace

SectorPainter::SectorPainter(const PieMenu& menu, const RingLayout& layout, const GlassStyle& glass)
    : menu_(menu),
      layout_(layout),
      glass_(glass),
      contents_(menu, layout),
      labelColor_(Color::fromHex(menu.shortcutDigitColorHex)) {}

PictureLayer SectorPainter::layer(std::size_t index, const PieMenuItem& item, const std::string& title,
                                  const std::optional<std::string>& label, bool isDimmed) const {
  PictureLayer layer;
  for (const Look look : {Look::normal, Look::highlighted}) {
    const Colors colored = colors(item, look, isDimmed);
    DisplayList list;
    appendBody(list, index, colored, look);
    if (look == Look::highlighted && menu_.pawDecorationEnabled) appendPaw(list, index, colored);
    if (label && !isDimmed) appendLabel(list, index, colored, *label, look);
    appendIcon(list, index, item, title, colored.ink);
    if (isDimmed) appendVeil(list, index, look);
    if (label && isDimmed) appendLabel(list, index, veiled(colored), *label, look);
    layer.states.push_back(std::move(list));
  }
  layer.bounds = boundsOf(layer.states);
  return layer;
}

PieSectorShape SectorPainter::wedge(std::size_t index, double growth) const {
  PieSectorShape shape = sectorShape(layout_, index, growth, 0);
  shape.gap = shape.outerCornerRadius = shape.innerCornerRadius = 0;
  return shape;
}

void SectorPainter::appendWedges(DisplayList& list, const std::vector<PieMenuItem>& items) const {
  const std::size_t step = (items.size() + kMaxWedges - 1) / kMaxWedges;
  for (std::size_t i = 0; i < items.size(); i += step) {
    const Colors colored = colors(items[i], Look::normal);
    PieSectorShape shape = wedge(i, 0);
    shape.endAngle = layout_.sectorEnd(std::min(i + step, items.size()) - 1);
    list.push_back(FillCommand{shape.path(), acrossRing(layout_, layout_.outerRadius, colored.atHub, colored.atRim)});
  }
}

PictureLayer SectorPainter::highlightLayer(const std::vector<PieMenuItem>& items) const {
  const double growth = layout_.highlightGrowth();
  const double halfWidth =
      std::max(sectorWidth(layout_.sectorCount), kMinHighlightWidth / layout_.outerRadius) / 2;  // radians
  PictureLayer layer{squareAround(layout_.center(), layout_.halfSide()), {}};
  layer.states.reserve(items.size() + 1);
  layer.states.emplace_back();
  for (std::size_t i = 0; i < items.size(); ++i) {
    const Colors colored = colors(items[i], Look::highlighted);
    PieSectorShape shape = wedge(i, growth);
    shape.startAngle = layout_.sectorMiddle(i) - halfWidth;
    shape.endAngle = layout_.sectorMiddle(i) + halfWidth;
    layer.states.emplace_back().push_back(
        FillCommand{shape.path(), acrossRing(layout_, layout_.outerRadius + growth, colored.atHub, colored.atRim)});
  }
  return layer;
}

SectorPainter::Colors SectorPainter::colors(const PieMenuItem& item, Look look, bool isDimmed) const {
  const Color color = isDimmed ? mix(itemColor(item), kFaded, 0.8) : itemColor(item);
  const double opacity = drawn<&PieMenu::shortcutDigitOpacity>(menu_);
  if (look == Look::highlighted) {
    const Color atHub = mix(color, kInk, 0.10);
    const Color atRim = mix(color, kWhite, 0.12);
    const Color middle = mix(atHub, atRim, 0.5);
    return {atHub.withAlpha(0.97), atRim.withAlpha(0.985), middle, inkOn(middle), std::clamp(opacity * 2.4, 0.6, 1.0)};
  }
  const Color stain = stainOf(color);
  const Color middle = mix(kDarkGlass, stain, (glass_.tintAtHub + glass_.tintAtRim) / 2);
  return {stain.withAlpha(glass_.tintAtHub), stain.withAlpha(glass_.tintAtRim), middle, inkOn(middle), opacity};
}

SectorPainter::Colors SectorPainter::veiled(Colors colors) {
  colors.atHub = together(colors.atHub, kVeil);
  colors.atRim = together(colors.atRim, kVeil);
  colors.ink = kWhite;
  return colors;
}

void SectorPainter::appendBody(DisplayList& list, std::size_t index, const Colors& colors, Look look) const {
  const bool isHighlighted = look == Look::highlighted;
  const double growth = isHighlighted ? layout_.highlightGrowth() : 0;
  const double line = isHighlighted ? std::clamp(1.5 * layout_.scale, 1.0, 3.0) : layout_.hairline();
  const Path outline = sectorShape(layout_, index, growth, 0).path();
  const Path inside = sectorShape(layout_, index, growth, line).path();
  list.push_back(FillCommand{outline, acrossRing(layout_, layout_.outerRadius + growth, colors.atHub, colors.atRim)});
  const Paint light =
      isHighlighted ? edgeLight(layout_, 0.95, 0.55) : edgeLight(layout_, glass_.upperEdge, glass_.lowerEdge);
  list.push_back(FillCommand{between(outline, inside), light});
}

void SectorPainter::appendPaw(DisplayList& list, std::size_t index, const Colors& colors) const {
  const auto paw = contents_.paw(index);
  if (!paw) return;
  const Point fromHub = paw->center - layout_.center();
  const double armLength = std::hypot(fromHub.x, fromHub.y) - layout_.innerRadius + 1;
  Path clip;
  if (!paw->isWhole) clip = sectorShape(layout_, index, layout_.highlightGrowth(), layout_.hairline()).path();
  list.push_back(FillCommand{catPaw(paw->center, paw->radius, layout_.sectorMiddle(index), armLength),
                             SolidPaint{colors.ink.withAlpha(0.24)}, std::move(clip)});
}

void SectorPainter::appendVeil(DisplayList& list, std::size_t index, Look look) const {
  const double growth = look == Look::highlighted ? layout_.highlightGrowth() : 0;
  list.push_back(FillCommand{sectorShape(layout_, index, growth, 0).path(), SolidPaint{kVeil}});
}

void SectorPainter::appendIcon(DisplayList& list, std::size_t index, const PieMenuItem& item, const std::string& title,
                               Color ink) const {
  const std::optional<Rect> rect = contents_.iconRect(index);
  if (!rect) return;
  const Color tint = item.iconColor ? Color::fromHex(*item.iconColor).value_or(ink) : ink;
  IconReference icon = IconReference::of(item);
  if (icon.kind != IconKind::none) {
    const bool hasOwnColors = icon.kind == IconKind::application || icon.kind == IconKind::imageFile;
    IconCommand command{icon.kind, std::move(icon.name), *rect, tint};
    if (hasOwnColors) command.backgrounds = backgrounds(item);
    list.push_back(std::move(command));
  } else if (!title.empty()) {
    list.push_back(TextCommand{std::string(firstCharacter(title)), *rect, rect->size.height * 0.72,
                               FontWeight::semibold, TextAlignment::center, 1, tint});
  }
}

IconBackgrounds SectorPainter::backgrounds(const PieMenuItem& item) const {
  const Colors normal = colors(item, Look::normal);
  const Color tint = mix(normal.atHub, normal.atRim, 0.5);
  return {layered(glass_.darkest, tint), layered(glass_.lightest, tint), colors(item, Look::highlighted).middle};
}

void SectorPainter::appendLabel(DisplayList& list, std::size_t index, const Colors& colors, const std::string& text,
                                Look look) const {
  const auto label = contents_.label(index, text);
  if (!label) return;
  const Color color = look == Look::normal ? labelColor_.value_or(kWhite) : colors.ink;
  TextCommand command{text,
                      label->rect,
                      label->pointSize,
                      FontWeight::semibold,
                      TextAlignment::center,
                      1,
                      color.withAlpha(colors.labelOpacity)};
  command.halo = halo(command, colors);
  list.push_back(std::move(command));
}

/// What the label needs to be legible on its sector, over any screen. Labels fainter than by default stay so: their
/// halo is as much fainter.
std::optional<TextHalo> SectorPainter::halo(const TextCommand& label, const Colors& colors) const {
  constexpr double kWidthPerPointSize = 0.085;
  constexpr double kDefaultOpacity = appearanceField<&PieMenu::shortcutDigitOpacity>().fallback;
  const Point offset = label.rect.center() - layout_.center();
  const double place = (std::hypot(offset.x, offset.y) - layout_.innerRadius) / layout_.ringWidth();
  const Color tint = mix(colors.atHub, colors.atRim, std::clamp(place, 0.0, 1.0));
  const Color ink = label.color.withAlpha(std::max(label.color.alpha, kDefaultOpacity));
  const Color needed = legibleHalo(ink, {layered(glass_.darkest, tint), layered(glass_.lightest, tint)});
  const double alpha = needed.alpha * std::min(1.0, label.color.alpha / kDefaultOpacity);
  if (alpha <= 0) return std::nullopt;
  return TextHalo{std::max(1.0, kWidthPerPointSize * label.pointSize), needed.withAlpha(alpha)};
}

}  // namespace rondora
