#include "pie/picture/glass_style.h"

#include <cmath>

#include "model/appearance_fields.h"

namespace rondora {
namespace {

constexpr Color kBlack{0, 0, 0, 1};
constexpr Color kWhite{1, 1, 1, 1};
constexpr Color kSmoke{0.11, 0.115, 0.14, 1};

GlassStyle regularGlass() {
  GlassStyle style;
  style.backdrop = {26, 1.7, 0.40, kSmoke.withAlpha(0.42), kSmoke.withAlpha(0.78)};
  style.upperEdge = 0.42;
  style.lowerEdge = 0.12;
  return style;
}

GlassStyle clearGlass() {
  GlassStyle style;
  style.backdrop = {7, 1.35, 0.48, kSmoke.withAlpha(0.15), kSmoke.withAlpha(0.62)};
  style.upperEdge = 0.70;
  style.lowerEdge = 0.26;
  return style;
}

}  // namespace

GlassStyle GlassStyle::of(const LiquidGlassSettings& settings) {
  GlassStyle style = settings.variant == LiquidGlassVariant::clear ? clearGlass() : regularGlass();
  const double opacity = appearanceField<&PieMenu::liquidGlass>().toDraw(settings.tintOpacity);
  // Menus use small opacities, so the curve separates those; 0 stays 0 and 1 stays 1.
  const double tint = std::pow(opacity, 0.4);
  style.tintAtHub = tint * (0.7 + 0.3 * tint);
  style.tintAtRim = tint * (2 - tint);
  style.darkest = layered(kBlack, style.backdrop.veil);
  style.lightest = layered(mix(kBlack, kWhite, style.backdrop.brightest), style.backdrop.veil);
  return style;
}

}  // namespace rondora
