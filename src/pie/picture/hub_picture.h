#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/display_list.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"

namespace rondora {

/// Draws the middle of the ring. Without a highlight it shows its figure: the target application's icon, else the cat
/// if the menu has the paw decoration. For a highlighted item it shows the item's title, with the figure above it if
/// both fit. Arguments must outlive the object.
class HubPainter {
 public:
  HubPainter(const PieMenu& menu, const RingLayout& layout, const std::optional<std::string>& application);

  /// State 0 is the figure alone, state 1 the figure above a title.
  PictureLayer figureLayer() const;
  /// State 0 is empty, then each title; the cat looks at the highlighted item.
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
