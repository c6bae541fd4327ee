#pragma once

#include <array>
#include <cstddef>
#include <memory>
#include <optional>
#include <span>
#include <vector>

#include "base/display_list.h"
#include "ui/appkit/painting/bitmap.h"
#include "ui/appkit/painting/core_graphics_shapes.h"
#include "ui/appkit/painting/icon_images.h"
#include "ui/appkit/painting/prepared_text.h"

namespace rondora::appkit {

/// One layer of a picture at one scale. Icons and texts of a state are prepared when it is first drawn, and the pixels
/// of the two latest states are kept, so that switching between them only copies. Positions are pixels of the picture.
class PreparedLayer {
 public:
  /// `layer` must outlive the object.
  PreparedLayer(const PictureLayer& layer, double pixelsPerPoint, PixelRect pictureBounds);

  const PixelRect& bounds() const { return bounds_; }
  /// Draws the layer; a fractional state blends the two states next to it.
  void draw(CGContextRef context, double state, IconImages& icons, std::span<const GlassImage> glass);
  /// False when the prepared states show the present icons.
  bool refreshIcons(IconImages& icons);
  void freePixels() { latest_ = {}; }

 private:
  /// What a command needs besides itself.
  struct Extra {
    Image image;
    Point corner;  // pixels
    std::unique_ptr<PreparedText> text;
  };
  struct Pixels {
    std::optional<std::size_t> state;
    Image image;
  };

  void prepare(std::size_t state, IconImages& icons);
  Extra iconExtra(const IconCommand& command, IconImages& icons) const;
  Extra textExtra(const TextCommand& command) const;
  Image render(std::size_t state, std::span<const GlassImage> glass) const;
  const Image& pixels(std::size_t state, IconImages& icons, std::span<const GlassImage> glass);

  const PictureLayer& layer_;
  double pixelsPerPoint_;
  PixelRect bounds_;
  std::vector<std::optional<std::vector<Extra>>> extras_;  // by state
  std::array<Pixels, 2> latest_;                           // even and odd states
};

}  // namespace rondora::appkit
