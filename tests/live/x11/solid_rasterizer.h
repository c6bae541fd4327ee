#pragma once

#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>
#include <vector>

#include "platform/picture_rasterizer.h"

namespace rondora::live {

/// Paints each layer's bounds in one colour that tells which state it is in: 0xFF000000 | 0x404040 × (state + 1).
class SolidRasterizer : public PictureRasterizer {
 public:
  std::unique_ptr<PreparedPicture> prepare(Picture picture, double /*pixelsPerPoint*/) override {
    return std::make_unique<Prepared>(std::move(picture));
  }

  static constexpr std::uint32_t color(std::size_t state) {
    return 0x404040U * (static_cast<std::uint32_t>(state) + 1);
  }

 private:
  struct Prepared : PreparedPicture {
    explicit Prepared(Picture source) : picture(std::move(source)) {}

    void paint(std::span<const std::size_t> states, const PictureView& view, PixelBuffer target) override {
      fill(view.dirty, view, target, 0);
      for (std::size_t i = 0; i < states.size(); ++i) {
        fill(common(picture.layers[i].bounds, view.dirty), view, target, 0xFF000000U | color(states[i]));
      }
    }

    static Rect common(const Rect& a, const Rect& b) {
      const double left = std::max(a.left(), b.left());
      const double top = std::max(a.top(), b.top());
      return {{left, top}, {std::min(a.right(), b.right()) - left, std::min(a.bottom(), b.bottom()) - top}};
    }

    static void fill(const Rect& rect, const PictureView& view, PixelBuffer target, std::uint32_t pixel) {
      const auto at = [&](double value) { return static_cast<int>(std::lround(value * view.pixelsPerPoint)); };
      for (int y = at(rect.top()); y < at(rect.bottom()); ++y) {
        for (int x = at(rect.left()); x < at(rect.right()); ++x) target.pixels[y * target.stride + x] = pixel;
      }
    }

    Picture picture;
  };
};

}  // namespace rondora::live
