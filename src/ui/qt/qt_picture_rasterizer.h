#pragma once

#include <utility>

#include "platform/picture_rasterizer.h"
#include "ui/qt/icon_images.h"

namespace rondora {

/// Draws with the toolkit's software painter. A prepared picture remembers what its present states look like, so that
/// only layers whose state changed are drawn again.
class QtPictureRasterizer : public PictureRasterizer {
 public:
  /// `applicationIcons` outlives this object and what it prepares.
  explicit QtPictureRasterizer(const ApplicationIcons& applicationIcons, SitePicture sitePicture = {})
      : icons_(applicationIcons, std::move(sitePicture)) {}

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) override;

  /// Loads what the first picture would otherwise wait for: fonts, the icon theme, picture readers.
  void warmUp();

 private:
  IconImages icons_;
};

}  // namespace rondora
