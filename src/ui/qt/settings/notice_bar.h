#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>

#include "settings/settings_models.h"
#include "ui/qt/settings/icon_button.h"

namespace rondora {

/// What the latest edit did besides the visible, with a button that takes it back.
class NoticeBar : public QWidget {
 public:
  /// The arguments must outlive the object.
  NoticeBar(const SettingsModels& models, const ItemIcons& icons);

  void refresh();

 private:
  SettingsModels models_;
  QLabel* text_;
  QPushButton* undo_;
  IconButton* dismiss_;
};

}  // namespace rondora
