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

/// The screen scaled down: the blur removes the lost detail anyway, and fewer pixels blur faster.
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

/// Writes the mean of each pixel and `radius` neighbours on either side to `target`.
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

/// The radius of three box filters that together approximate a Gaussian of that deviation.
int meanRadius(double deviation) {
  return static_cast<int>(std::lround((std::sqrt(4 * deviation * deviation + 1) - 1) / 2));
}

/// The change of colour by the glass.
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
struct Neighbours {
  int first;
  int second;
  std::uint32_t weight;  // of the second, in 256ths

  Neighbours(int large, int factor, int count) {
    const int place = (2 * large + 1) * 128 / factor - 128;  // 256ths of a small pixel
    const int whole = place >> 8;
    first = std::clamp(whole, 0, count - 1);
    second = std::clamp(whole + 1, 0, count - 1);
    weight = static_cast<std::uint32_t>(place & 0xFF);
  }
};

/// Writes the first `count` of the `factor` pixels from the middle of `a` to that of `b`, with the values of
/// `mixedPixel`, using additions only. Returns the end of the written pixels.
std::uint32_t* enlarge(std::uint32_t a, std::uint32_t b, int factor, int count, std::uint32_t* target) {
  const std::uint32_t step = 256 / static_cast<std::uint32_t>(factor);
  const std::uint32_t first = factor == 1 ? 0 : step / 2;
  const auto start = [first](std::uint32_t from, std::uint32_t to) { return from * (256 - first) + to * first; };
  std::uint32_t even = start(a & kEvenComponents, b & kEvenComponents);
  std::uint32_t odd = start(a >> 8 & kEvenComponents, b >> 8 & kEvenComponents);
  const std::uint32_t evenStep = ((b & kEvenComponents) - (a & kEvenComponents)) * step;
  const std::uint32_t oddStep = ((b >> 8 & kEvenComponents) - (a >> 8 & kEvenComponents)) * step;
  for (int i = 0; i < count; ++i, even += evenStep, odd += oddStep)
    *target++ = (even >> 8 & kEvenComponents) | (odd & ~kEvenComponents);
  return target;
}

int shrinkingFactor(double deviation) {
  int factor = 1;
  while (factor < 16 && factor * 3.0 <= deviation) factor *= 2;
  return factor;
}

double deviationOf(const Frost& frost) { return std::clamp(frost.blurRadius, 0.0, 500.0) / 2; }

}  // namespace

FrostedGlass::FrostedGlass(const PixelBuffer& screen, const Frost& frost)
    : width_(screen.width), height_(screen.height), factor_(shrinkingFactor(deviationOf(frost))) {
  Tile tile = shrunk(screen, factor_);
  smooth(tile, meanRadius(deviationOf(frost) / factor_));
  smallWidth_ = tile.width;
  smallHeight_ = tile.height;
  small_.resize(tile.pixels.size());
  std::transform(tile.pixels.begin(), tile.pixels.end(), small_.begin(),
                 [glass = Glass(frost)](Rgb color) { return packed(glass(color)); });
  line_.resize(static_cast<std::size_t>(smallWidth_));
}

void FrostedGlass::copyRow(int y, std::uint32_t* target) {
  const Neighbours rows(y, factor_, smallHeight_);
  const std::uint32_t* upper = small_.data() + static_cast<std::ptrdiff_t>(rows.first) * smallWidth_;
  const std::uint32_t* lower = small_.data() + static_cast<std::ptrdiff_t>(rows.second) * smallWidth_;
  std::transform(upper, upper + smallWidth_, lower, line_.begin(),
                 [&](std::uint32_t a, std::uint32_t b) { return mixedPixel(a, b, rows.weight); });
  std::uint32_t* const end = target + width_;
  target = std::fill_n(target, std::min(factor_ / 2, width_), line_.front());
  for (std::size_t x = 0; x + 1 < line_.size() && target < end; ++x) {
    target = enlarge(line_[x], line_[x + 1], factor_, std::min(factor_, static_cast<int>(end - target)), target);
  }
  std::fill(target, end, line_.back());
}

void FrostedGlass::copyTo(const PixelBuffer& target) {
  for (int y = 0; y < height_; ++y) copyRow(y, target.pixels + static_cast<std::ptrdiff_t>(y) * target.stride);
}

void frost(const PixelBuffer& screen, const Frost& frost, PixelBuffer target) {
  FrostedGlass(screen, frost).copyTo(target);
}

}  // namespace rondora
