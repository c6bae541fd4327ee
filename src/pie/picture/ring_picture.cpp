#include "pie/picture/ring_picture.h"

#include "pie/labels/quick_select.h"
#include "pie/picture/glass_style.h"
#include "pie/picture/hub_picture.h"
#include "pie/picture/ring_glass.h"
#include "pie/picture/sector_picture.h"

namespace rondora {
namespace {

/// A sector beyond the list shows its default label.
std::optional<std::string> labelOf(const RingContents& contents, std::size_t index) {
  if (index < contents.labels.size()) return contents.labels[index];
  const auto label = defaultShortcutLabel(index);
  return label ? std::optional(std::string(*label)) : std::nullopt;
}

}  // namespace

Picture makeRingPicture(const PieMenu& menu, const RingLayout& layout, const RingContents& contents) {
  const GlassStyle glass = GlassStyle::of(menu.liquidGlass);
  Picture picture;
  picture.size = {2 * layout.halfSide(), 2 * layout.halfSide()};
  picture.anchor = layout.center();
  picture.layers.reserve(ring_layers::title(contents.items.size()) + 1);
  const bool isCrowded = ring_layers::isCrowded(contents.items.size());
  picture.layers.push_back(ringGlassLayer(layout, glass, isCrowded ? 0 : contents.items.size()));
  const SectorPainter painter(menu, layout, glass);
  if (isCrowded) {
    painter.appendWedges(picture.layers.back().states.front(), contents.items);
    picture.layers.push_back(painter.highlightLayer(contents.items));
  }
  for (std::size_t i = 0; i < contents.items.size() && !isCrowded; ++i) {
    const bool isDimmed = i < contents.dimmed.size() && contents.dimmed[i];
    picture.layers.push_back(painter.layer(i, contents.items[i], contents.titles[i], labelOf(contents, i), isDimmed));
  }
  const HubPainter hub(menu, layout, contents.hub);
  picture.layers.push_back(hub.figureLayer());
  picture.layers.push_back(hub.titleLayer(contents.titles, contents.notes));
  return picture;
}

}  // namespace rondora
