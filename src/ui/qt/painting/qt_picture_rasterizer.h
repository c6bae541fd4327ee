#pragma once

#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "platform/picture_rasterizer.h"
#include "ui/qt/painting/icon_images.h"

namespace rondora {

class DrawnPicture;

/// Draws with the toolkit's software painter. Keeps the latest pictures, so that showing one again does not prepare it
/// again.
class QtPictureRasterizer : public PictureRasterizer {
 public:
  /// `applicationIcons` must outlive this object and the pictures that it prepares.
  explicit QtPictureRasterizer(const ApplicationIcons& applicationIcons, IconSources sources = {})
      : icons_(applicationIcons, std::move(sources)) {}

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) override;
  void prerender(Picture picture, double pixelsPerPoint) override;

  /// Loads what the first picture would otherwise wait for: fonts and symbols.
  void warmUp();

 private:
  std::shared_ptr<DrawnPicture> keptPicture(const std::function<bool(DrawnPicture&)>& suits);
  std::shared_ptr<DrawnPicture> newPicture(Picture picture, double pixelsPerPoint);
  void keepFew();

  IconImages icons_;
  std::vector<std::shared_ptr<DrawnPicture>> kept_;  // the most recently used last
};

}  // namespace rondora
