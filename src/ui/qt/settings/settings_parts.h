#pragma once

#include <QString>
#include <QWidget>
#include <functional>
#include <string>

#include "platform/picture_rasterizer.h"
#include "settings/settings_models.h"
#include "settings/window_contents.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// What the pages of the settings are made with. The references outlive the pages.
struct SettingsParts {
  SettingsModels models;
  const WindowContents& contents;
  const ItemIcons& icons;
  PictureRasterizer& rasterizer;
  /// Each opens a window of the settings' and answers when the user has chosen there.
  std::function<void(QWidget& parent, std::function<void(std::string bundleIdentifier)>)> chooseApplication;
  std::function<void(QWidget& parent, const PieMenuItem& item, std::function<void(std::string icon)>)> chooseIcon;
};

}  // namespace rondora
