#pragma once

#include <functional>
#include <memory>

#include "platform/picture_rasterizer.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// What draws icons and the preview of a ring as the ring itself is drawn.
struct SettingsDrawing {
  std::unique_ptr<PictureRasterizer> rasterizer;
  ItemIcons::Draw icon;
};

/// Called when the settings' window opens; it releases the drawing when it closes.
using MakeSettingsDrawing = std::function<SettingsDrawing()>;

}  // namespace rondora
