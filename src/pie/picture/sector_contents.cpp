#include "pie/picture/sector_contents.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "base/unicode.h"
#include "model/appearance_fields.h"
#include "pie/geometry/pie_sector_shape.h"
#include "pie/geometry/sector_geometry.h"

namespace rondora {
namespace {

constexpr double kRadiusPerPointSize = 0.55;  // of the disc that a single character needs
constexpr double kIconCorners = 1.16;         // a square icon reaches beyond its inscribed disc
constexpr double kMinIconRadius = 3;          // points; a smaller icon is unrecognisable
constexpr double kMinLabelRadius = 3.3;
constexpr double kMinPawRadius = 5;
constexpr double kArmPerPaw = 0.7;  // half the arm's width

double halfGapOf(const RingLayout& layout) {
  PieSectorShape shape;
  shape.innerRadius = layout.innerRadius;
  shape.startAngle = layout.sectorStart(0);
  shape.endAngle = layout.sectorEnd(0);
  shape.gap = SectorContents::gap(layout);
  return shape.halfGap();
}

}  // namespace

double SectorContents::gap(const RingLayout& layout) { return 4 * layout.scale; }

SectorContents::SectorContents(const PieMenu& menu, const RingLayout& layout)
    : layout_(layout),
      halfWidth_(sectorWidth(layout.sectorCount) / 2),
      padding_(std::min(3 * layout.scale, 0.06 * layout.ringWidth())),
      halfGap_(halfGapOf(layout)),
      labelUnit_(std::min(layout.ringWidth(), 90 * layout.scale)),
      labelRadius_(kRadiusPerPointSize * labelUnit_ * drawn<&PieMenu::shortcutDigitSizeScale>(menu)),
      icon_(fittingIcon(menu, layout.outerRadius)),
      paw_(pawPlace(menu)) {
  if (!placeInCorners(menu)) stack(menu);
}

/// The radius of the largest disc centred at `distance` that stays inside the sector.
double SectorContents::roomAt(double distance, double rim) const {
  const double toEdge = distance * std::sin(std::min(halfWidth_, std::numbers::pi / 2)) - halfGap_;
  return std::min({toEdge, rim - distance, distance - layout_.innerRadius}) - padding_;
}

SectorContents::Disc SectorContents::fittingIcon(const PieMenu& menu, double rim) const {
  const double wanted = drawn<&PieMenu::iconSize>(menu) * layout_.scale / 2;
  const double place = drawn<&PieMenu::iconDistance>(menu);
  const double wantedDistance = layout_.innerRadius + layout_.ringWidth() * place;
  constexpr int kSteps = 64;
  constexpr double kPullToWantedPlace = 0.02;
  Disc best{wantedDistance, std::min(wanted, roomAt(wantedDistance, rim) / kIconCorners)};
  double bestScore = best.radius;
  for (int step = 0; step <= kSteps; ++step) {
    const double distance = layout_.innerRadius + (rim - layout_.innerRadius) * step / kSteps;
    const double radius = std::min(wanted, roomAt(distance, rim) / kIconCorners);
    const double score = radius - kPullToWantedPlace * std::abs(distance - wantedDistance);
    if (score <= bestScore) continue;
    best = {distance, radius};
    bestScore = score;
  }
  return best;
}

SectorContents::Disc SectorContents::pawPlace(const PieMenu& menu) const {
  const double size = drawn<&PieMenu::pawSizeScale>(menu);
  const double inset = drawn<&PieMenu::pawRadialInset>(menu);
  const double distance = layout_.outerRadius - inset * layout_.ringWidth();
  const double toEdge = distance * std::sin(std::min(halfWidth_, std::numbers::pi / 2)) - halfGap_ - padding_;
  return {distance, std::min(size * layout_.ringWidth() / 2, toEdge)};
}

/// The place nearest to the wanted one, seen from the corner, at which the disc touches neither icon nor hub.
std::optional<SectorContents::CornerPlace> SectorContents::cornerPlace(double inset, double radius) const {
  constexpr int kSteps = 32;
  std::optional<CornerPlace> place;
  for (int step = 0; step <= kSteps; ++step) {
    const double wanted = inset * step / kSteps;
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
  return apart >= kIconCorners * icon_.radius + place.disc.radius;
}

/// Shrinks the label until it fits, but not below the size that a stack would give it.
bool SectorContents::placeInCorners(const PieMenu& menu) {
  constexpr double kStep = 0.95;
  const double leftInset = drawn<&PieMenu::shortcutDigitInsetLeftScale>(menu) * labelUnit_;
  const double rightInset = drawn<&PieMenu::shortcutDigitInsetRightScale>(menu) * labelUnit_;
  constexpr double kMinRadius = 1;  // points
  const double smallest = std::max(stackedLabelRadius(), kMinRadius);
  double radius = labelRadius_;
  while (radius >= smallest) {
    left_ = cornerPlace(leftInset, radius);
    right_ = cornerPlace(rightInset, radius);
    if (left_ && right_) {
      labelRadius_ = radius;
      return true;
    }
    radius *= kStep;
  }
  return false;
}

double SectorContents::stackedLabelRadius() const {
  const double rim = layout_.outerRadius;
  const double room = roomAt(rim - labelRadius_ - padding_, rim + padding_);
  return std::min({labelRadius_, std::max(room, 0.0), 0.16 * layout_.ringWidth()});
}

/// Label at the rim, icon between it and the hub.
void SectorContents::stack(const PieMenu& menu) {
  const double rim = layout_.outerRadius;
  labelRadius_ = stackedLabelRadius();
  const double distance = rim - labelRadius_ - padding_;
  left_ = right_ = CornerPlace{{distance, labelRadius_}, halfWidth_};
  icon_ = fittingIcon(menu, labelRadius_ >= kMinLabelRadius ? distance - labelRadius_ : rim);
}

Point SectorContents::pointAt(double distance, double angle) const {
  return {layout_.halfSide() + distance * std::cos(angle), layout_.halfSide() + distance * std::sin(angle)};
}

std::optional<Rect> SectorContents::iconRect(std::size_t index) const {
  if (icon_.radius < kMinIconRadius) return std::nullopt;
  return squareAround(pointAt(icon_.distance, layout_.sectorMiddle(index)), icon_.radius);
}

std::optional<SectorContents::Paw> SectorContents::paw(std::size_t index) const {
  if (paw_.radius < kMinPawRadius) return std::nullopt;
  const double armEnd = layout_.innerRadius + padding_;
  const double roomForArm = armEnd * std::sin(std::min(halfWidth_, std::numbers::pi / 2)) - halfGap_ - padding_;
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
