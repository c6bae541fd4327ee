#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <vector>

#include "base/color.h"
#include "base/display_list.h"
#include "model/pie_menu.h"
#include "pie/geometry/pie_sector_shape.h"
#include "pie/geometry/ring_layout.h"
#include "pie/picture/glass_style.h"
#include "pie/picture/sector_contents.h"

namespace rondora {

/// Draws the sectors of one ring, each as a layer with the states of `ring_layers`: tinted glass with icon and label;
/// highlighted it is larger, filled with the item's colour, and the cat's paw reaches for it. A dimmed sector has lost
/// most of its colour, and a veil covers all of it. Arguments must outlive the object.
class SectorPainter {
 public:
  SectorPainter(const PieMenu& menu, const RingLayout& layout, const GlassStyle& glass);

  PictureLayer layer(std::size_t index, const PieMenuItem& item, const std::string& title,
                     const std::optional<std::string>& label, bool isDimmed) const;

  /// The sectors of a crowded ring as plain wedges, without gap, icon and label. At most kMaxWedges: neighbours that
  /// share one have the colour of the first.
  void appendWedges(DisplayList& list, const std::vector<PieMenuItem>& items) const;
  /// The highlight of a crowded ring, wide enough to be seen. State 0 is empty, then one state per item.
  PictureLayer highlightLayer(const std::vector<PieMenuItem>& items) const;

 private:
  enum class Look { normal, highlighted };
  /// The colours of one sector in one look.
  struct Colors {
    Color atHub;
    Color atRim;
    /// The approximate colour on screen half-way between them; opaque.
    Color middle;
    /// Of icon and label; legible on it.
    Color ink;
    double labelOpacity = 1;
  };

  static constexpr std::size_t kMaxWedges = 1024;

  PieSectorShape wedge(std::size_t index, double growth) const;
  Colors colors(const PieMenuItem& item, Look look, bool isDimmed = false) const;
  /// With the veil of a dimmed sector over them.
  static Colors veiled(Colors colors);
  IconBackgrounds backgrounds(const PieMenuItem& item) const;
  void appendBody(DisplayList& list, std::size_t index, const Colors& colors, Look look) const;
  void appendPaw(DisplayList& list, std::size_t index, const Colors& colors) const;
  void appendVeil(DisplayList& list, std::size_t index, Look look) const;
  void appendIcon(DisplayList& list, std::size_t index, const PieMenuItem& item, const std::string& title,
                  Color ink) const;
  void appendLabel(DisplayList& list, std::size_t index, const Colors& colors, const std::string& text,
                   Look look) const;
  std::optional<TextHalo> halo(const TextCommand& label, const Colors& colors) const;

  const PieMenu& menu_;
  const RingLayout& layout_;
  const GlassStyle& glass_;
  SectorContents contents_;
  std::optional<Color> labelColor_;
};

}  // namespace rondora
