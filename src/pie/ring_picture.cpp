#include "pie/ring_picture.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/color.h"
#include "base/unicode.h"
#include "icons/icon_reference.h"
#include "pie/pie_sector_shape.h"
#include "pie/quick_select.h"
#include "pie/sector_contents.h"

namespace rondora {
namespace {

constexpr Color kWhite{1, 1, 1, 1};
constexpr Color kInk{0.09, 0.09, 0.11, 1};
/// Nearly opaque: nothing blurs what lies behind, and a busy window must not make icons hard to read.
constexpr double kGlassOpacity = 0.89;
constexpr Color kGlass{0.105, 0.11, 0.135, kGlassOpacity};
constexpr Color kShadow{0, 0, 0, 0.42};

enum class Look { normal, highlighted };

double luminance(Color color) { return 0.2126 * color.red + 0.7152 * color.green + 0.0722 * color.blue; }

Color itemColor(const PieMenuItem& item) {
  return Color::fromHex(item.color).value_or(Color::fromHex(kDefaultItemColor).value_or(kWhite));
}

/// What stands out on a highlighted sector of that colour.
Color foregroundOn(Color background) { return luminance(background) > 0.68 ? kInk : kWhite; }

Path wholeCircle(const RingLayout& layout, double radius) { return Path::circle(layout.center(), radius); }

PieSectorShape sectorShape(const RingLayout& layout, std::size_t index, Look look) {
  PieSectorShape shape;
  shape.center = layout.center();
  shape.innerRadius = layout.innerRadius;
  shape.outerRadius = layout.outerRadius + (look == Look::highlighted ? layout.highlightGrowth() : 0);
  shape.startAngle = layout.sectorStart(index);
  shape.endAngle = layout.sectorEnd(index);
  shape.gap = SectorContents::gap(layout);
  shape.outerCornerRadius = 13 * layout.scale;
  shape.innerCornerRadius = 9 * layout.scale;
  return shape;
}

/// From the hub's edge to the rim.
RadialGradientPaint acrossRing(const RingLayout& layout, double rim, Color atHub, Color atRim) {
  return {layout.center(), rim, {{0, atHub}, {layout.innerRadius / rim, atHub}, {1, atRim}}};
}

/// Light from above along a glass edge.
LinearGradientPaint edgeLight(const RingLayout& layout, double top, double bottom) {
  const Point center = layout.center();
  return {{center.x, center.y - layout.outerRadius},
          {center.x, center.y + layout.outerRadius},
          {{0, kWhite.withAlpha(top)}, {1, kWhite.withAlpha(bottom)}}};
}

/// A soft shadow: strongest below the ring, gone at the edge of the panel.
RadialGradientPaint shadowPaint(const RingLayout& layout) {
  const double reach = layout.outerRadius + layout.shadowWidth();
  const auto stopAt = [&](double radius, double strength) {
    return GradientStop{std::clamp(radius / reach, 0.0, 1.0), kShadow.withAlpha(kShadow.alpha * strength)};
  };
  const double width = layout.shadowWidth();
  return {layout.center(),
          reach,
          {stopAt(0, 0.4), stopAt(layout.innerRadius, 0.6), stopAt(layout.outerRadius - width / 2, 1),
           stopAt(layout.outerRadius, 0.62), stopAt(layout.outerRadius + width * 0.3, 0.30),
           stopAt(layout.outerRadius + width * 0.6, 0.10), stopAt(reach, 0)}};
}

void appendHub(DisplayList& list, const RingLayout& layout) {
  const double radius = layout.hubRadius();
  const Path disc = wholeCircle(layout, radius);
  list.push_back(FillCommand{disc, RadialGradientPaint{layout.center(),
                                                       radius,
                                                       {{0, Color{0.15, 0.155, 0.185, 0.93}},
                                                        {0.75, Color{0.115, 0.12, 0.145, 0.92}},
                                                        {1, Color{0.085, 0.09, 0.11, 0.91}}}}});
  list.push_back(StrokeCommand{wholeCircle(layout, radius - 0.5), edgeLight(layout, 0.26, 0.08), 1});
}

void appendEmptyRing(DisplayList& list, const RingLayout& layout) {
  PieSectorShape ring = sectorShape(layout, 0, Look::normal);
  ring.endAngle = ring.startAngle + 2 * std::numbers::pi;
  list.push_back(FillCommand{ring.path(), SolidPaint{kGlass}});
  list.push_back(StrokeCommand{ring.path(), edgeLight(layout, 0.3, 0.08), 1});
}

PictureLayer backdropLayer(const RingLayout& layout, bool hasSectors) {
  DisplayList list;
  list.push_back(FillCommand{wholeCircle(layout, layout.outerRadius + layout.shadowWidth()), shadowPaint(layout)});
  appendHub(list, layout);
  if (!hasSectors) appendEmptyRing(list, layout);
  return {squareAround(layout.center(), layout.halfSide()), {std::move(list)}};
}

/// Draws the sectors of one ring.
class SectorPainter {
 public:
  SectorPainter(const PieMenu& menu, const RingLayout& layout)
      : menu_(menu),
        layout_(layout),
        contents_(menu, layout),
        labelColor_(Color::fromHex(menu.shortcutDigitColorHex)) {}

  PictureLayer layer(std::size_t index, const PieMenuItem& item, const std::string& title,
                     const std::optional<std::string>& label) const {
    PictureLayer layer;
    for (const Look look : {Look::normal, Look::highlighted}) {
      DisplayList list;
      appendBody(list, index, itemColor(item), look);
      appendIcon(list, index, item, title, look);
      if (label) appendLabel(list, index, itemColor(item), *label, look);
      layer.states.push_back(std::move(list));
    }
    layer.bounds = bounds(layer.states);
    return layer;
  }

 private:
  void appendBody(DisplayList& list, std::size_t index, Color color, Look look) const {
    const PieSectorShape shape = sectorShape(layout_, index, look);
    const Path path = shape.path();
    if (look == Look::normal) {
      const Color atHub = mix(kGlass, color.withAlpha(kGlassOpacity), 0.24);
      const Color atRim = mix(kGlass, color.withAlpha(kGlassOpacity), 0.60);
      list.push_back(FillCommand{path, acrossRing(layout_, shape.outerRadius, atHub, atRim)});
      list.push_back(StrokeCommand{path, edgeLight(layout_, 0.34, 0.10), 1});
      return;
    }
    const Color atHub = mix(color, kInk, 0.12).withAlpha(0.97);
    const Color atRim = mix(color, kWhite, 0.10).withAlpha(0.98);
    list.push_back(FillCommand{path, acrossRing(layout_, shape.outerRadius, atHub, atRim)});
    list.push_back(StrokeCommand{path, SolidPaint{kWhite.withAlpha(0.92)}, rimWidth()});
  }

  void appendIcon(DisplayList& list, std::size_t index, const PieMenuItem& item, const std::string& title,
                  Look look) const {
    const std::optional<Rect> rect = contents_.iconRect(index);
    if (!rect) return;
    const Color tint = iconTint(item, look);
    IconReference icon = IconReference::of(item);
    if (icon.kind != IconKind::none) {
      list.push_back(IconCommand{icon.kind, std::move(icon.name), *rect, tint});
    } else if (!title.empty()) {
      list.push_back(TextCommand{std::string(firstCharacter(title)), *rect, rect->size.height * 0.72,
                                 FontWeight::semibold, TextAlignment::center, 1, tint});
    }
  }

  Color iconTint(const PieMenuItem& item, Look look) const {
    const Color plain = look == Look::highlighted ? foregroundOn(itemColor(item)) : kWhite.withAlpha(0.96);
    return item.iconColor ? Color::fromHex(*item.iconColor).value_or(plain) : plain;
  }

  void appendLabel(DisplayList& list, std::size_t index, Color sectorColor, const std::string& text, Look look) const {
    const auto label = contents_.label(index, text);
    if (!label) return;
    const double opacity = std::isfinite(menu_.shortcutDigitOpacity) ? menu_.shortcutDigitOpacity : 0.29;
    const Color color = look == Look::normal ? labelColor_.value_or(kWhite).withAlpha(std::clamp(opacity, 0.1, 1.0))
                                             : foregroundOn(sectorColor).withAlpha(std::clamp(opacity * 2.4, 0.6, 1.0));
    list.push_back(
        TextCommand{text, label->rect, label->pointSize, FontWeight::semibold, TextAlignment::center, 1, color});
  }

  double rimWidth() const { return std::clamp(2 * layout_.scale, 1.0, 4.0); }

  Rect bounds(const std::vector<DisplayList>& states) const;

  const PieMenu& menu_;
  const RingLayout& layout_;
  SectorContents contents_;
  std::optional<Color> labelColor_;
};

/// The smallest box around all control points, which no curve leaves.
struct Box {
  double left = 1e9, top = 1e9, right = -1e9, bottom = -1e9;

  void add(Point p) {
    left = std::min(left, p.x);
    top = std::min(top, p.y);
    right = std::max(right, p.x);
    bottom = std::max(bottom, p.y);
  }
  void add(const Path& path) {
    for (const PathElement& element : path.elements) {
      if (element.verb == PathVerb::close) continue;
      add(element.end);
      if (element.verb != PathVerb::cubic) continue;
      add(element.control1);
      add(element.control2);
    }
  }
  void add(const DisplayCommand& command) {
    std::visit(
        [this](const auto& drawn) {
          if constexpr (requires { drawn.path; }) {
            add(drawn.path);
          } else {
            add(drawn.rect.origin);
            add({drawn.rect.right(), drawn.rect.bottom()});
          }
        },
        command);
  }
};

Rect SectorPainter::bounds(const std::vector<DisplayList>& states) const {
  Box box;
  for (const DisplayList& list : states) {
    for (const DisplayCommand& command : list) box.add(command);
  }
  const double margin = rimWidth() / 2 + 1;
  return {{std::floor(box.left - margin), std::floor(box.top - margin)},
          {std::ceil(box.right + margin) - std::floor(box.left - margin),
           std::ceil(box.bottom + margin) - std::floor(box.top - margin)}};
}

/// A sector beyond the list of labels shows its default one.
std::optional<std::string> labelOf(const RingContents& contents, std::size_t index) {
  if (index < contents.labels.size()) return contents.labels[index];
  const auto label = defaultShortcutLabel(index);
  return label ? std::optional(std::string(*label)) : std::nullopt;
}

PictureLayer titleLayer(const RingLayout& layout, const std::vector<std::string>& titles) {
  const double radius = layout.hubRadius();
  const Size size{2 * radius * 0.82, 2 * radius * 0.5};
  const Point center = layout.center();
  const Rect rect{{center.x - size.width / 2, center.y - size.height / 2}, size};
  PictureLayer layer{rect, {DisplayList{}}};
  const double pointSize = std::min(16 * layout.scale, radius * 0.235);
  for (const std::string& title : titles) {
    layer.states.push_back(
        {TextCommand{title, rect, pointSize, FontWeight::semibold, TextAlignment::center, 3, kWhite.withAlpha(0.97)}});
  }
  return layer;
}

}  // namespace

Picture makeRingPicture(const PieMenu& menu, const RingLayout& layout, const RingContents& contents) {
  Picture picture;
  picture.size = {2 * layout.halfSide(), 2 * layout.halfSide()};
  picture.anchor = layout.center();
  picture.layers.reserve(contents.items.size() + 2);
  picture.layers.push_back(backdropLayer(layout, !contents.items.empty()));
  const SectorPainter painter(menu, layout);
  for (std::size_t i = 0; i < contents.items.size(); ++i) {
    picture.layers.push_back(painter.layer(i, contents.items[i], contents.titles[i], labelOf(contents, i)));
  }
  picture.layers.push_back(titleLayer(layout, contents.titles));
  return picture;
}

}  // namespace rondora
