#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

#include "base/geometry.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"

namespace rondora {

/// Places icon, quick-select label and paw of a sector. Icon and label stand upright in every sector.
///
/// The icon's centre lies on the sector's middle line, at `iconDistance` between hub (0) and rim (1), its side is
/// `iconSize`; it shrinks and moves so that its square stays inside the sector. The label's size is
/// `shortcutDigitSizeScale` of the ring's width, at most of 90 points. Its centre lies in the sector's upper outer
/// corner, from the corner's two edges as far as the inset scale of its half of the ring (left or right) says, relative
/// to the same width, and nearer, or a little smaller, where it would touch the icon. In sectors too narrow for both
/// side by side, the icon takes the wide part and the label lies between it and the hub; in the ring of a single
/// sector it lies opposite the icon. The paw is `pawSizeScale` of the ring's width across, less where the sector is
/// narrower, and its centre lies `pawRadialInset` of that width inside the rim.
class SectorContents {
 public:
  SectorContents(const PieMenu& menu, const RingLayout& layout);

  /// Nothing if it does not fit.
  std::optional<Rect> iconRect(std::size_t index) const;
  struct Label {
    Rect rect;
    double pointSize = 0;
  };
  std::optional<Label> label(std::size_t index, std::string_view text) const;

  struct Paw {
    Point center;
    double radius = 0;
    /// Lies inside the sector with all of its arm.
    bool isWhole = false;
  };
  /// Nothing if it would be too small to recognise.
  std::optional<Paw> paw(std::size_t index) const;

  /// The space between sectors.
  static double gap(const RingLayout& layout);

 private:
  struct Disc {
    double distance = 0;  // of its centre from the ring's
    double radius = 0;
  };
  struct CornerPlace {
    Disc disc;
    double angleFromEdge = 0;
  };

  double roomAt(double distance) const;
  Disc pawPlace(const PieMenu& menu) const;
  Disc iconAt(double distance) const;
  Disc fittingIcon() const;
  bool placeInCorners(const PieMenu& menu);
  std::optional<CornerPlace> cornerPlace(double inset, double radius) const;
  bool leavesIconFree(const CornerPlace& place) const;
  /// The radius of a large label.
  double largeLabel() const;
  Disc labelInside(const Disc& icon) const;
  void stack();
  void placeOpposite();
  Point pointAt(double distance, double angle) const;

  RingLayout layout_;
  double halfWidth_;  // of a sector, radians
  double halfWidthSine_;
  double padding_;
  double halfGap_;
  double labelUnit_;  // unit of the label's scales
  double labelRadius_;
  /// Icons count as the disc around their square.
  Disc wantedIcon_;
  Disc icon_;
  Disc paw_;
  std::optional<CornerPlace> left_;
  std::optional<CornerPlace> right_;
};

}  // namespace rondora
