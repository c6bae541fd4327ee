#pragma once

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/picture_rasterizer.h"

namespace rondora::live {

/// Paints each layer's bounds in one colour that tells which state it is in: 0xFF000000 | 0x404040 × (state + 1), but
/// half transparent grey in state 2.
class SolidRasterizer : public PictureRasterizer {
 public:
  static constexpr double kTranslucent = 2;

  /// What the pictures were told to lie over, the latest last; of each the pixels, row by row.
  std::vector<std::vector<std::uint32_t>> backdrops;

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double /*pixelsPerPoint*/) override {
    return std::make_unique<Prepared>(*this, std::move(picture));
  }
  void prepareAhead(Picture /*picture*/, double /*pixelsPerPoint*/) override {}

  static constexpr std::uint32_t color(double state) { return 0x404040U * (static_cast<std::uint32_t>(state) + 1); }

 private:
  struct Prepared : PreparedPicture {
    Prepared(SolidRasterizer& rasterizer, Picture source) : owner(rasterizer), picture(std::move(source)) {}

    void setBackdrop(const PixelBuffer& screen) override {
      auto& rows = owner.backdrops.emplace_back();
      for (int y = 0; y < screen.height; ++y) {
        const std::uint32_t* row = screen.pixels + static_cast<std::ptrdiff_t>(y) * screen.stride;
        rows.insert(rows.end(), row, row + screen.width);
      }
    }

    void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) override {
      fill(view.dirty, view, target, 0);
      for (std::size_t i = 0; i < states.size(); ++i) {
        fill(common(picture.layers[i].bounds, view.dirty), view, target,
             states[i] == kTranslucent ? 0x80404040U : 0xFF000000U | color(states[i]));
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

    SolidRasterizer& owner;
    Picture picture;
  };
};

}  // namespace rondora::live
