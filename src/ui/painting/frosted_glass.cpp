#include "ui/painting/frosted_glass.h"

#include <algorithm>
#include <cmath>
#include <cstddef>
#include <vector>

#include "base/pixels.h"

namespace rondora {
namespace {

/// Components 0 to 255.
struct Rgb {
  float red = 0;
  float green = 0;
  float blue = 0;
};

Rgb operator+(Rgb a, Rgb b) { return {a.red + b.red, a.green + b.green, a.blue + b.blue}; }
Rgb operator-(Rgb a, Rgb b) { return {a.red - b.red, a.green - b.green, a.blue - b.blue}; }
Rgb operator*(Rgb a, float factor) { return {a.red * factor, a.green * factor, a.blue * factor}; }

/// The screen scaled down: a blur removes the lost detail anyway, and blurring fewer pixels costs less.
struct Tile {
  int width = 0;
  int height = 0;
  std::vector<Rgb> pixels;

  Tile(int w, int h) : width(w), height(h), pixels(static_cast<std::size_t>(w) * static_cast<std::size_t>(h)) {}
  Rgb* row(int y) { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
  const Rgb* row(int y) const { return pixels.data() + static_cast<std::ptrdiff_t>(y) * width; }
};

const std::uint32_t* rowOf(const PixelBuffer& buffer, int y) {
  return buffer.pixels + static_cast<std::ptrdiff_t>(y) * buffer.stride;
}

Tile shrunk(const PixelBuffer& screen, int factor) {
  Tile tile((screen.width + factor - 1) / factor, (screen.height + factor - 1) / factor);
  for (int top = 0, y = 0; y < tile.height; ++y, top += factor) {
    const int bottom = std::min(top + factor, screen.height);
    for (int left = 0, x = 0; x < tile.width; ++x, left += factor) {
      const int right = std::min(left + factor, screen.width);
      std::uint32_t red = 0, green = 0, blue = 0;
      for (int row = top; row < bottom; ++row) {
        const std::uint32_t* pixels = rowOf(screen, row);
        for (int column = left; column < right; ++column) {
          red += pixels[column] >> 16 & 0xFF;
          green += pixels[column] >> 8 & 0xFF;
          blue += pixels[column] & 0xFF;
        }
      }
      const Rgb sum{static_cast<float>(red), static_cast<float>(green), static_cast<float>(blue)};
      tile.row(y)[x] = sum * (1 / static_cast<float>((bottom - top) * (right - left)));
    }
  }
  return tile;
}

/// Every pixel becomes the mean of itself and `radius` neighbours to either side.
void smoothLine(const Rgb* source, Rgb* target, int count, std::ptrdiff_t step, int radius) {
  const auto at = [&](int i) { return source[std::clamp(i, 0, count - 1) * step]; };
  Rgb sum;
  for (int i = -radius; i <= radius; ++i) sum = sum + at(i);
  const float share = 1 / static_cast<float>(2 * radius + 1);
  for (int i = 0; i < count; ++i) {
    target[i * step] = sum * share;
    sum = sum + at(i + radius + 1) - at(i - radius);
  }
}

void smooth(Tile& tile, int radius) {
  if (radius < 1) return;
  constexpr int kPasses = 3;  // approximates a Gaussian
  Tile other(tile.width, tile.height);
  for (int pass = 0; pass < kPasses; ++pass) {
    for (int y = 0; y < tile.height; ++y) smoothLine(tile.row(y), other.row(y), tile.width, 1, radius);
    for (int x = 0; x < tile.width; ++x) {
      smoothLine(other.row(0) + x, tile.row(0) + x, tile.height, tile.width, radius);
    }
  }
}

/// The radius of three box filters that together spread like a Gaussian of that deviation.
int meanRadius(double deviation) {
  return static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
}

/// The colour change of a frost.
class Glass {
 public:
  explicit Glass(const Frost& frost)
      : saturation_(static_cast<float>(frost.saturation)),
        dimming_(1 / static_cast<float>(std::clamp(frost.brightest, 0.01, 1.0)) - 1),
        shownThrough_(1 - static_cast<float>(frost.veil.alpha)),
        veil_(Rgb{static_cast<float>(frost.veil.red), static_cast<float>(frost.veil.green),
                  static_cast<float>(frost.veil.blue)} *
              (kWhite * static_cast<float>(frost.veil.alpha))) {}

  Rgb operator()(Rgb color) const {
    const float light = 0.2126F * color.red + 0.7152F * color.green + 0.0722F * color.blue;
    const float kept = shownThrough_ / (1 + light / kWhite * dimming_);
    const Rgb grey{light, light, light};
    return (grey + (color - grey) * saturation_) * kept + veil_;
  }

 private:
  static constexpr float kWhite = 255;
  float saturation_;
  float dimming_;
  float shownThrough_;
  Rgb veil_;
};

std::uint32_t packed(Rgb color) {
  const auto component = [](float value) { return static_cast<std::uint32_t>(std::clamp(value + 0.5F, 0.0F, 255.0F)); };
  return 0xFF000000U | component(color.red) << 16 | component(color.green) << 8 | component(color.blue);
}

/// A position between two neighbours in a row of `count` small pixels, each `factor` large pixels wide.
struct Between {
  int first;
  int second;
  std::uint32_t weight;

  Between(int large, int factor, int count) {
    const int place = (2 * large + 1) * 128 / factor - 128;  // 256ths of a small pixel
    const int whole = place >> 8;
    first = std::clamp(whole, 0, count - 1);
    second = std::clamp(whole + 1, 0, count - 1);
    weight = static_cast<std::uint32_t>(place & 0xFF);
  }
};

void grow(const std::vector<std::uint32_t>& small, int width, int height, int factor, PixelBuffer target) {
  std::vector<std::uint32_t> line(static_cast<std::size_t>(width));
  std::vector<Between> columns;
  columns.reserve(static_cast<std::size_t>(target.width));
  for (int x = 0; x < target.width; ++x) columns.emplace_back(x, factor, width);
  for (int y = 0; y < target.height; ++y) {
    const Between rows(y, factor, height);
    const std::uint32_t* upper = small.data() + static_cast<std::ptrdiff_t>(rows.first) * width;
    const std::uint32_t* lower = small.data() + static_cast<std::ptrdiff_t>(rows.second) * width;
    std::transform(upper, upper + width, lower, line.begin(),
                   [&](std::uint32_t a, std::uint32_t b) { return mixedPixel(a, b, rows.weight); });
    std::transform(columns.begin(), columns.end(), target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride,
                   [pixels = line.data()](const Between& place) {
                     return mixedPixel(pixels[place.first], pixels[place.second], place.weight);
                   });
  }
}

}  // namespace

void frost(const PixelBuffer& screen, const Frost& frost, PixelBuffer target) {
  const double deviation = std::clamp(frost.blurRadius, 0.0, 500.0) / 2;
  int factor = 1;
  while (factor < 16 && factor * 3.0 <= deviation) factor *= 2;
  Tile tile = shrunk(screen, factor);
  smooth(tile, meanRadius(deviation / factor));
  std::vector<std::uint32_t> small(tile.pixels.size());
  std::transform(tile.pixels.begin(), tile.pixels.end(), small.begin(),
                 [glass = Glass(frost)](Rgb color) { return packed(glass(color)); });
  grow(small, tile.width, tile.height, factor, target);
}

}  // namespace rondora
