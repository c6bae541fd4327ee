#pragma once

#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <utility>
#include <vector>

#include "platform/picture_rasterizer.h"

namespace rondora::live {

/// Paints each layer's bounds in the colour of its state: 0xFF000000 | 0x404040 × (state + 1), but half transparent
/// grey in state 2.
class SolidRasterizer : public PictureRasterizer {
 public:
  static constexpr double kTranslucent = 2;

  /// The pixels of each snapshot that was set, the latest last, row by row.
  std::vector<std::vector<std::uint32_t>> snapshots;

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double /*pixelsPerPoint*/) override {
    return std::make_unique<Prepared>(*this, std::move(picture));
  }
  void prerender(Picture /*picture*/, double /*pixelsPerPoint*/) override {}

  static constexpr std::uint32_t color(double state) { return 0x404040U * (static_cast<std::uint32_t>(state) + 1); }

 private:
  struct Prepared : PreparedPicture {
    Prepared(SolidRasterizer& rasterizer, Picture source) : owner(rasterizer), picture(std::move(source)) {}

    void setSnapshot(const PixelBuffer& screen) override {
      auto& seen =
          owner.snapshots.emplace_back(screen.pixels, screen.pixels + std::ptrdiff_t{screen.stride} * screen.height);
      for (std::uint32_t& pixel : seen) pixel |= 0xFF000000U;  // the screen's alpha is undefined
    }

    void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) override {
      const auto at = [&](double value) { return static_cast<int>(std::lround(value * view.pixelsPerPoint)); };
      for (int y = at(view.dirty.top()); y < at(view.dirty.bottom()); ++y) {
        for (int x = at(view.dirty.left()); x < at(view.dirty.right()); ++x) {
          target.pixels[y * target.stride + x] = pixel(Point{x + 0.5, y + 0.5} * (1 / view.pixelsPerPoint), states);
        }
      }
    }

    std::uint32_t pixel(Point point, std::span<const double> states) const {
      std::uint32_t result = 0;
      for (std::size_t i = 0; i < states.size(); ++i) {
        if (!picture.layers[i].bounds.contains(point)) continue;
        result = states[i] == kTranslucent ? 0x80404040U : 0xFF000000U | color(states[i]);
      }
      return result;
    }

    SolidRasterizer& owner;
    Picture picture;
  };
};

}  // namespace rondora::live
