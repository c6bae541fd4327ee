#pragma once

#include <optional>
#include <string>
#include <vector>

#include "base/display_list.h"
#include "model/pie_menu.h"
#include "pie/geometry/ring_layout.h"

namespace rondora {

struct HubContents {
  /// The target application.
  std::optional<std::string> application;
  /// For a hub without figure; of a menu without items it states that, and every hub shows it.
  std::string heading;
  bool isMenuEmpty = false;
  /// The side on which titles are legible, where the screen's edge cuts the hub: -1, 0 or 1 along each axis.
  Point visibleSide = {};
};

/// Draws the middle of the ring. Without a highlight it shows its figure: the target application's icon, else the cat
/// if the menu has the paw decoration, else the heading. For a highlighted item it shows the item's title, with the
/// figure above it if both fit. Arguments must outlive the object.
class HubPainter {
 public:
  HubPainter(const PieMenu& menu, const RingLayout& layout, const HubContents& contents);

  /// State 0 is the figure alone, state 1 the figure above a title.
  PictureLayer figureLayer() const;
  /// State 0 is the heading, if any, then each title; the cat looks at the highlighted item.
  /// `notes` are beneath their titles; titles beyond the list have none. A hub that the screen's edge cuts shows no
  /// notes.
  PictureLayer titleLayer(const std::vector<std::string>& titles, const std::vector<std::string>& notes) const;

 private:
  struct Figure {
    Point center;
    double halfSide = 0;
  };

  bool hasFigure() const { return contents_.application || menu_.pawDecorationEnabled; }
  bool isCut() const { return contents_.visibleSide != Point{}; }
  bool hasRoomForBoth() const;
  double figureHalfSide() const;
  Figure figureAboveTitle() const;
  void appendFigure(DisplayList& list, const Figure& figure, bool isAlone) const;
  Rect titleRect(bool hasNote) const;
  TextCommand title(const std::string& text, bool hasNote = false) const;
  TextCommand note(const std::string& text) const;
  PictureLayer layer() const;

  const PieMenu& menu_;
  const RingLayout& layout_;
  const HubContents& contents_;
  double radius_;
};

}  // namespace rondora
