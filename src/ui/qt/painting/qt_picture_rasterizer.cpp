#include "ui/qt/painting/qt_picture_rasterizer.h"

#include <algorithm>
#include <array>
#include <functional>
#include <utility>

#include "ui/qt/painting/drawn_picture.h"

namespace rondora {

namespace {

/// About twenty usual rings at one pixel per point, six at two.
constexpr std::size_t kMaxKeptBytes = 16 << 20;
constexpr std::ptrdiff_t kMaxKept = 32;
/// A larger picture would displace too many others.
constexpr std::size_t kMaxBytesOfOne = kMaxKeptBytes / 2;

/// One showing of a picture.
class QtPreparedPicture : public PreparedPicture {
 public:
  QtPreparedPicture(std::shared_ptr<DrawnPicture> picture, IconImages& icons)
      : picture_(std::move(picture)), icons_(icons) {
    picture_->begin();
  }
  ~QtPreparedPicture() override { picture_->end(); }
  QtPreparedPicture(const QtPreparedPicture&) = delete;
  QtPreparedPicture& operator=(const QtPreparedPicture&) = delete;

  void setSnapshot(const PixelBuffer& screen) override { picture_->setSnapshot(screen); }
  void paint(std::span<const double> states, const PictureView& view, PixelBuffer target) override {
    picture_->paint(states, view, target);
  }
  void prepareChanges() override { picture_->prepareChanges(); }
  bool refreshIcons() override { return picture_->refreshIcons(icons_); }

 private:
  std::shared_ptr<DrawnPicture> picture_;
  IconImages& icons_;
};

/// An example of everything that a ring may hold.
Picture sampler() {
  const Rect rect{{0, 0}, {48, 48}};
  DisplayList list;
  for (const char* symbol : {"star.fill", "hare.fill"}) list.push_back(IconCommand{IconKind::symbol, symbol, rect, {}});
  list.push_back(IconCommand{IconKind::emoji, "🙂", rect, {}});
  for (const FontWeight weight : {FontWeight::regular, FontWeight::semibold}) {
    list.push_back(TextCommand{"0 Aa", rect, 16, weight, TextAlignment::center, 1, {}});
  }
  return {rect.size, {}, {{rect, {std::move(list)}}}};
}

}  // namespace

void QtPictureRasterizer::warmUp() {
  constexpr int kSide = 48;
  std::array<std::uint32_t, std::size_t{kSide} * kSide> pixels{};
  const std::array<double, 1> states{};
  prepare(sampler(), 1)->paint(states, {1, 1, 1, {{0, 0}, {kSide, kSide}}}, {pixels.data(), kSide, kSide, kSide});
}

std::unique_ptr<PreparedPicture> QtPictureRasterizer::prepare(Picture picture, double pixelsPerPoint) {
  auto kept = keptPicture([&](DrawnPicture& each) { return each.isOf(picture, pixelsPerPoint, icons_); });
  if (!kept) kept = keptPicture([&](DrawnPicture& each) { return each.adopt(picture, pixelsPerPoint, icons_); });
  if (!kept) kept = newPicture(std::move(picture), pixelsPerPoint);
  return std::make_unique<QtPreparedPicture>(std::move(kept), icons_);
}

void QtPictureRasterizer::prerender(Picture picture, double pixelsPerPoint) {
  auto kept = keptPicture([&](DrawnPicture& each) { return each.isOf(picture, pixelsPerPoint, icons_); });
  if (!kept) kept = newPicture(std::move(picture), pixelsPerPoint);
  if (kept->prerenderedByteCount() > kMaxBytesOfOne) return;
  kept->prerender();
  keepFew();
}

/// A kept picture that is not being shown and suits; it becomes the most recently used.
std::shared_ptr<DrawnPicture> QtPictureRasterizer::keptPicture(const std::function<bool(DrawnPicture&)>& suits) {
  const auto found = std::find_if(kept_.begin(), kept_.end(), [&](const std::shared_ptr<DrawnPicture>& kept) {
    return !kept->isShown() && suits(*kept);
  });
  if (found == kept_.end()) return nullptr;
  std::rotate(found, found + 1, kept_.end());
  return kept_.back();
}

std::shared_ptr<DrawnPicture> QtPictureRasterizer::newPicture(Picture picture, double pixelsPerPoint) {
  auto made = std::make_shared<DrawnPicture>(std::move(picture), pixelsPerPoint, icons_);
  if (made->byteCount() > kMaxBytesOfOne) return made;
  kept_.push_back(made);
  keepFew();
  return made;
}

void QtPictureRasterizer::keepFew() {
  kept_.erase(kept_.begin(), kept_.end() - std::min(std::ssize(kept_), kMaxKept));
  std::size_t bytes = 0;
  const auto isTooMuch = [&bytes](const std::shared_ptr<DrawnPicture>& kept) {
    bytes += kept->byteCount();
    return bytes > kMaxKeptBytes;
  };
  kept_.erase(kept_.begin(), std::find_if(kept_.rbegin(), kept_.rend(), isTooMuch).base());
}

}  // namespace rondora
