#pragma once

#include <memory>
#include <vector>

#include "platform/picture_rasterizer.h"
#include "ui/appkit/painting/icon_images.h"

namespace rondora::appkit {

class DrawnPicture;

/// Keeps the latest pictures, so that showing one again does not prepare it again.
class CoreGraphicsRasterizer final : public PictureRasterizer {
 public:
  /// `applicationIcons` must outlive this object and the pictures that it prepares.
  explicit CoreGraphicsRasterizer(const ApplicationIcons& applicationIcons, IconSources sources = {})
      : icons_(applicationIcons, std::move(sources)) {}

  std::unique_ptr<PreparedPicture> prepare(Picture picture, double pixelsPerPoint) override;
  void prerender(Picture picture, double pixelsPerPoint) override;

  /// See `IconImages`.
  void forgetApplications() { icons_.forgetApplications(); }
  /// Loads what the first picture would otherwise wait for: fonts and symbols.
  void warmUp();

 private:
  std::shared_ptr<DrawnPicture> find(Picture picture, double pixelsPerPoint);
  void keepFew();

  IconImages icons_;
  std::vector<std::shared_ptr<DrawnPicture>> kept_;  // the most recently used last
};

}  // namespace rondora::appkit
