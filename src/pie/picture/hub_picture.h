#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/display_list.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"

namespace rondora {

/// Draws the middle of the ring. At rest it shows its figure: the icon of the application that the menu is about, else
/// the cat, where the menu has its paws. For a highlighted item it shows the item's title, and the figure above it
/// where there is room for both. What it is given outlives it.
class HubPainter {
 public:
  HubPainter(const PieMenu& menu, const RingLayout& layout, const std::optional<std::string>& application);

  /// The figure alone, and as it is above a title.
  PictureLayer figureLayer() const;
  /// Nothing, then each title; the cat looks at the item that is meant.
  PictureLayer titleLayer(const std::vector<std::string>& titles) const;

 private:
  struct Figure {
    Point center;
    double halfSide = 0;
  };

  bool hasFigure() const { return application_ || menu_.pawDecorationEnabled; }
  bool hasRoomForBoth() const;
  double figureHalfSide() const;
  Figure figureAboveTitle() const;
  void appendFigure(DisplayList& list, const Figure& figure, bool isAlone) const;
  TextCommand title(const std::string& text) const;
  PictureLayer layer() const;

  const PieMenu& menu_;
  const RingLayout& layout_;
  const std::optional<std::string>& application_;
  double radius_;
};

}  // namespace rondora
