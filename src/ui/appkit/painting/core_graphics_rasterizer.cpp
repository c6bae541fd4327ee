#include "ui/appkit/painting/core_graphics_rasterizer.h"

#include <algorithm>
#include <array>
#include <cstdint>
#include <utility>

#include "ui/appkit/painting/drawn_picture.h"

namespace rondora::appkit {
namespace {

/// About six usual rings at two pixels per point.
constexpr std::size_t kMaxKeptBytes = 48 << 20;

/// One showing of a picture.
class Showing final : public PreparedPicture {
 public:
  explicit Showing(std::shared_ptr<DrawnPicture> picture) : picture_(std::move(picture)) { picture_->begin(); }
  ~Showing() override { picture_->end(); }
  Showing(const Showing&) = delete;
  Showing& operator=(const Showing&) = delete;

  void setSnapshot(const PixelBuffer& screen) override { picture_->setSnapshot(screen); }
  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) override {
    picture_->paint(states, view, target);
  }
  bool refreshIcons() override { return picture_->refreshIcons(); }

 private:
  std::shared_ptr<DrawnPicture> picture_;
};

/// An example of everything that a ring may hold.
Picture sampler() {
  const Rect rect{{0, 0}, {48, 48}};
  DisplayList list;
  list.push_back(IconCommand{IconKind::symbol, "star.fill", rect, {}});
  list.push_back(IconCommand{IconKind::emoji, "🙂", rect, {}});
  for (const FontWeight weight : {FontWeight::regular, FontWeight::semibold}) {
    list.push_back(TextCommand{"0 Aa", rect, 16, weight, TextAlignment::center, 1, {}});
  }
  return {rect.size, {}, {{rect, {std::move(list)}}}};
}

}  // namespace

std::unique_ptr<PreparedPicture> CoreGraphicsRasterizer::prepare(Picture picture, double pixelsPerPoint) {
  return std::make_unique<Showing>(find(std::move(picture), pixelsPerPoint));
}

void CoreGraphicsRasterizer::prerender(Picture picture, double pixelsPerPoint) {
  find(std::move(picture), pixelsPerPoint)->prerender();
}

void CoreGraphicsRasterizer::warmUp() { DrawnPicture(sampler(), 1, icons_).prerender(); }

/// One that is not being shown; it becomes the most recently used.
std::shared_ptr<DrawnPicture> CoreGraphicsRasterizer::find(Picture picture, double pixelsPerPoint) {
  const auto found = std::ranges::find_if(
      kept_, [&](const auto& each) { return !each->isShown() && each->isOf(picture, pixelsPerPoint); });
  if (found != kept_.end()) {
    std::rotate(found, found + 1, kept_.end());
    return kept_.back();
  }
  auto made = std::make_shared<DrawnPicture>(std::move(picture), pixelsPerPoint, icons_);
  kept_.push_back(made);
  keepFew();
  return made;
}

void CoreGraphicsRasterizer::keepFew() {
  std::size_t bytes = 0;
  const auto isTooMuch = [&bytes](const std::shared_ptr<DrawnPicture>& kept) {
    bytes += kept->byteCount();
    return bytes > kMaxKeptBytes;
  };
  kept_.erase(kept_.begin(), std::find_if(kept_.rbegin(), kept_.rend(), isTooMuch).base());
}

}  // namespace rondora::appkit
