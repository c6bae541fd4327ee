#pragma once

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QScrollArea>
#include <QVBoxLayout>
#include <QWidget>
#include <map>

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
  /// What a special menu shows beside its ring.
  struct Panel {
    QWidget* widget = nullptr;
    std::function<void()> refresh;
  };
  using MakePanel = std::function<Panel(PieMenuKind)>;

  MenuPage(const SettingsParts& parts, MakePanel makePanel);

  /// Shows the present texts and values.
  void refresh();

 private:
  /// Puts the focus into the name, as for a new menu.
  void editName();
  QWidget* makeHead();
  QWidget* makeRing();
  QWidget* makeSide();
  void refreshHead();
  void refreshSide();
  void fitSide();
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
  MakePanel makePanel_;
  QVBoxLayout* sideColumn_ = nullptr;
  std::map<PieMenuKind, Panel> panels_;
  std::optional<Uuid> shownItem_;
  std::optional<Uuid> shownMenu_;
};

}  // namespace rondora
