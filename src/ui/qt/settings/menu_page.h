#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QWidget>

#include "ui/qt/settings/settings_parts.h"

namespace rondora {

class ColorField;
class HotkeyField;
class IconButton;
class ItemList;
class ItemPanel;
class RingPreviewView;

/// One menu: its name and triggers, its ring, and beside it the chosen item or what a special menu is filled with.
class MenuPage : public QWidget {
 public:
  /// Makes what a special menu shows beside its ring; may return null.
  using MakePanel = std::function<QWidget*(PieMenuKind)>;

  MenuPage(const SettingsParts& parts, const MakePanel& makePanel);

  /// Shows the present texts and values.
  void refresh();
  void refreshIcons();
  /// Puts the focus into the name, as for a new menu.
  void editName();

 private:
  QWidget* makeHead();
  QWidget* makeRing();
  QWidget* makeSide(const MakePanel& makePanel);
  void refreshHead();
  void refreshSide();
  QString text(StringKey key) const;

  SettingsParts parts_;
  MenuEditor& menu_;
  QLineEdit* name_;
  QCheckBox* switch_;
  QLabel* description_;
  QLabel* hotkeyLabel_ = nullptr;
  HotkeyField* hotkey_;
  QLabel* fingersLabel_ = nullptr;
  QComboBox* fingers_;
  QLabel* trackpadNote_;
  RingPreviewView* preview_;
  IconButton* turnLeft_;
  IconButton* turnRight_;
  QLabel* help_;
  ItemList* items_;
  QScrollArea* side_ = nullptr;
  QLabel* chooseOne_;
  ItemPanel* item_;
  QLabel* colorLabel_;
  ColorField* color_;
  QWidget* menuSide_;
  QWidget* runningApps_ = nullptr;
  QWidget* appCommands_ = nullptr;
  std::optional<Uuid> shownItem_;
};

}  // namespace rondora
