#pragma once

#include <memory>
#include <utility>
#include <vector>

#include "platform/picture_rasterizer.h"
#include "ui/qt/painting/icon_images.h"

namespace rondora {

class DrawnPicture;

/// Draws with the toolkit's software painter. The latest pictures are kept: one that is shown again is as good as
/// drawn.
class QtPictureRasterizer : public PictureRasterizer {
 public:
  /// `applicationIcons` outlives this object and what it prepares.
  explicit QtPictureRasterizer(const ApplicationIcons& applicationIcons, SitePicture sitePicture = {})
      : icons_(applicationIcons, std::move(sitePicture)) {}

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) override;
  void prepareAhead(Picture picture, double pixelsPerPoint) override;

  /// Loads what the first picture would otherwise wait for: fonts, the icon theme, picture readers.
  void warmUp();

 private:
  std::shared_ptr<DrawnPicture> pictureOf(Picture picture, double pixelsPerPoint);
  void keepFew();

  IconImages icons_;
  std::vector<std::shared_ptr<DrawnPicture>> kept_;  // the latest last
};

}  // namespace rondora
