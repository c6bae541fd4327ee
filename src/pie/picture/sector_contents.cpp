#include "pie/picture/sector_contents.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

#include "base/unicode.h"
#include "model/appearance_fields.h"
#include "pie/geometry/pie_sector_shape.h"
#include "pie/geometry/sector_geometry.h"

namespace rondora {
namespace {

constexpr double kRadiusPerPointSize = 0.55;              // of the disc that a single character needs
constexpr double kDiscPerHalfSide = std::numbers::sqrt2;  // of the disc around a square
constexpr double kMinIconRadius = 3 * kDiscPerHalfSide;   // points; a smaller icon is unrecognisable
constexpr double kMinLabelRadius = 3.3;
constexpr double kMinPawRadius = 5;
constexpr double kArmPerPaw = 0.7;     // half the arm's width
constexpr double kLabelPerIcon = 0.6;  // worth of a whole label where a whole icon counts 1
constexpr double kLargeLabel = 1.5;    // times the default size; the icon does not shrink for a larger one
constexpr double kPullToWantedPlace = 0.02;
constexpr int kSteps = 64;

double halfWidthSine(const RingLayout& layout) {
  return std::sin(std::min(sectorWidth(layout.sectorCount) / 2, std::numbers::pi / 2));
}

double halfGapOf(const RingLayout& layout) {
  PieSectorShape shape;
  shape.innerRadius = layout.innerRadius;
  shape.startAngle = layout.sectorStart(0);
  shape.endAngle = layout.sectorEnd(0);
  shape.gap = SectorContents::gap(layout);
  return shape.halfGap();
}

/// Narrow sectors have less to spare.
double paddingOf(const RingLayout& layout) {
  return std::min({3 * layout.scale, 0.06 * layout.ringWidth(), 0.12 * layout.outerRadius * halfWidthSine(layout)});
}

}  // namespace

double SectorContents::gap(const RingLayout& layout) {
  return std::min(4 * layout.scale, 0.4 * layout.innerRadius * halfWidthSine(layout));
}

SectorContents::SectorContents(const PieMenu& menu, const RingLayout& layout)
    : layout_(layout),
      halfWidth_(sectorWidth(layout.sectorCount) / 2),
      halfWidthSine_(halfWidthSine(layout)),
      padding_(paddingOf(layout)),
      halfGap_(halfGapOf(layout)),
      labelUnit_(std::min(layout.ringWidth(), 90 * layout.scale)),
      labelRadius_(kRadiusPerPointSize * labelUnit_ * drawn<&PieMenu::shortcutDigitSizeScale>(menu)),
      wantedIcon_{layout.innerRadius + layout.ringWidth() * drawn<&PieMenu::iconDistance>(menu),
                  kDiscPerHalfSide * drawn<&PieMenu::iconSize>(menu) * layout.scale / 2},
      icon_(fittingIcon()),
      paw_(pawPlace(menu)) {
  if (layout.sectorCount == 1) {
    placeOpposite();
  } else if (!placeInCorners(menu)) {
    stack();
  }
}

/// The radius of the largest disc centred at `distance` that stays inside the sector.
double SectorContents::roomAt(double distance) const {
  const double toEdge = distance * halfWidthSine_ - halfGap_;
  return std::min({toEdge, layout_.outerRadius - distance, distance - layout_.innerRadius}) - padding_;
}

SectorContents::Disc SectorContents::iconAt(double distance) const {
  return {distance, std::min(wantedIcon_.radius, roomAt(distance))};
}

/// The largest icon, near its wanted place.
SectorContents::Disc SectorContents::fittingIcon() const {
  const auto score = [this](const Disc& icon) {
    return icon.radius - kPullToWantedPlace * std::abs(icon.distance - wantedIcon_.distance);
  };
  Disc best = iconAt(wantedIcon_.distance);
  for (int step = 0; step <= kSteps; ++step) {
    const Disc icon = iconAt(layout_.innerRadius + layout_.ringWidth() * step / kSteps);
    if (score(icon) > score(best)) best = icon;
  }
  return best;
}

SectorContents::Disc SectorContents::pawPlace(const PieMenu& menu) const {
  const double size = drawn<&PieMenu::pawSizeScale>(menu);
  const double inset = drawn<&PieMenu::pawRadialInset>(menu);
  const double distance = layout_.outerRadius - inset * layout_.ringWidth();
  const double toEdge = distance * halfWidthSine_ - halfGap_ - padding_;
  return {distance, std::min(size * layout_.ringWidth() / 2, toEdge)};
}

/// The place nearest to the wanted one, seen from the corner, at which the disc touches neither icon nor hub.
std::optional<SectorContents::CornerPlace> SectorContents::cornerPlace(double inset, double radius) const {
  constexpr int kInsetSteps = 32;
  std::optional<CornerPlace> place;
  for (int step = 0; step <= kInsetSteps; ++step) {
    const double wanted = inset * step / kInsetSteps;
    const double fromRim = std::max(wanted, radius + padding_);
    const double fromEdge = std::max(wanted, radius + padding_ + halfGap_);
    const double distance = layout_.outerRadius - fromRim;
    if (distance - radius - padding_ < layout_.innerRadius || fromEdge >= distance) break;
    const CornerPlace next{{distance, radius}, std::asin(fromEdge / distance)};
    if (!leavesIconFree(next)) break;
    place = next;
  }
  return place;
}

bool SectorContents::leavesIconFree(const CornerPlace& place) const {
  const double angle = halfWidth_ - place.angleFromEdge;
  if (angle < 0) return false;
  const double a = place.disc.distance;
  const double b = icon_.distance;
  const double apart = std::sqrt(std::max(0.0, a * a + b * b - 2 * a * b * std::cos(angle)));
  return apart >= icon_.radius + place.disc.radius;
}

/// Shrinks the label a little if need be, a large one more.
bool SectorContents::placeInCorners(const PieMenu& menu) {
  const double leftInset = drawn<&PieMenu::shortcutDigitInsetLeftScale>(menu) * labelUnit_;
  const double rightInset = drawn<&PieMenu::shortcutDigitInsetRightScale>(menu) * labelUnit_;
  for (double share = 1; share >= 0.8 || share * labelRadius_ >= largeLabel(); share -= 0.05) {
    left_ = cornerPlace(leftInset, share * labelRadius_);
    right_ = cornerPlace(rightInset, share * labelRadius_);
    if (!left_ || !right_) continue;
    labelRadius_ *= share;
    return true;
  }
  return false;
}

double SectorContents::largeLabel() const {
  constexpr double kDefault = appearanceField<&PieMenu::shortcutDigitSizeScale>().fallback;
  return kLargeLabel * kRadiusPerPointSize * kDefault * labelUnit_;
}

/// The largest label between an icon and the hub.
SectorContents::Disc SectorContents::labelInside(const Disc& icon) const {
  const double end = icon.distance - icon.radius - padding_ / 2;
  const double betweenEdges = (end * halfWidthSine_ - halfGap_ - padding_) / (1 + halfWidthSine_);
  const double beforeHub = (end - layout_.innerRadius - padding_) / 2;
  const double radius = std::max(0.0, std::min({labelRadius_, betweenEdges, beforeHub}));
  return {end - radius, radius};
}

/// Icon in the wide part of the sector, label between it and the hub; each as large as the other permits.
void SectorContents::stack() {
  Disc label{icon_.distance, std::min(labelRadius_, roomAt(icon_.distance))};
  double bestScore = -std::numeric_limits<double>::infinity();
  const double wholeIcon = std::max(wantedIcon_.radius, kMinIconRadius);
  for (int step = 0; step <= kSteps; ++step) {
    const Disc icon = iconAt(layout_.innerRadius + layout_.ringWidth() * step / kSteps);
    const Disc inside = labelInside(icon);
    const double distance = std::abs(icon.distance - wantedIcon_.distance) / layout_.ringWidth();
    const double worth = kLabelPerIcon * kLargeLabel * std::min(inside.radius / largeLabel(), 1.0);
    const double score = icon.radius / wholeIcon + worth - kPullToWantedPlace * distance;
    if (icon.radius < kMinIconRadius || score <= bestScore) continue;
    bestScore = score;
    icon_ = icon;
    label = inside;
  }
  labelRadius_ = label.radius;
  left_ = right_ = CornerPlace{label, halfWidth_};
}

/// A closed ring has no corners: the label lies opposite the icon.
void SectorContents::placeOpposite() {
  labelRadius_ = std::min(labelRadius_, roomAt(icon_.distance));
  left_ = right_ = CornerPlace{{icon_.distance, labelRadius_}, 0};
}

Point SectorContents::pointAt(double distance, double angle) const {
  return {layout_.halfSide() + distance * std::cos(angle), layout_.halfSide() + distance * std::sin(angle)};
}

std::optional<Rect> SectorContents::iconRect(std::size_t index) const {
  if (icon_.radius < kMinIconRadius) return std::nullopt;
  return squareAround(pointAt(icon_.distance, layout_.sectorMiddle(index)), icon_.radius / kDiscPerHalfSide);
}

std::optional<SectorContents::Paw> SectorContents::paw(std::size_t index) const {
  if (paw_.radius < kMinPawRadius) return std::nullopt;
  const double armEnd = layout_.innerRadius + padding_;
  const double roomForArm = armEnd * halfWidthSine_ - halfGap_ - padding_;
  const bool isWhole = paw_.distance + paw_.radius < layout_.outerRadius && paw_.distance > armEnd &&
                       kArmPerPaw * paw_.radius < roomForArm;
  return Paw{pointAt(paw_.distance, layout_.sectorMiddle(index)), paw_.radius, isWhole};
}

std::optional<SectorContents::Label> SectorContents::label(std::size_t index, std::string_view text) const {
  if (labelRadius_ < kMinLabelRadius || text.empty()) return std::nullopt;
  const bool leftHalf = std::cos(layout_.sectorMiddle(index)) < -1e-9;
  const CornerPlace& place = leftHalf ? *left_ : *right_;
  // The upper of the outer corners: clockwise, the right half goes down and the left half up.
  const double angle =
      leftHalf ? layout_.sectorEnd(index) - place.angleFromEdge : layout_.sectorStart(index) + place.angleFromEdge;
  const double characters = static_cast<double>(std::max<std::size_t>(scalarCount(text), 1));
  return Label{squareAround(pointAt(place.disc.distance, angle), labelRadius_),
               labelRadius_ / kRadiusPerPointSize / std::min(characters, 6.0)};
}

}  // namespace rondora
