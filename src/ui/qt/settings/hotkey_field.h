#pragma once

#include <QLabel>
#include <QPushButton>
#include <QWidget>
#include <string>

#include "localization/localization_store.h"
#include "settings/window_contents.h"
#include "ui/qt/settings/icon_button.h"

namespace rondora {

/// The hotkey of one menu: a button that shows and records it, one that removes it, and what is wrong with it. A
/// recording ends when the user clicks anywhere but on its button, and when the window loses the focus or is hidden.
class HotkeyField : public QWidget {
 public:
  HotkeyField(HotkeyList list, const LocalizationStore& localization, const ItemIcons& icons);

  void setMenu(const std::string& menuId);
  void refresh();
  /// Takes the focus; the buddy of a label.
  QPushButton& button() { return *record_; }

 protected:
  void showEvent(QShowEvent* event) override;
  void hideEvent(QHideEvent* event) override;
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  const HotkeyRow* row() const;
  void cancel();
  void cancelUnlessOnButton();

  HotkeyList list_;
  const LocalizationStore& localization_;
  std::string menuId_;
  HotkeyRows rows_;
  QPushButton* record_;
  IconButton* remove_;
  QLabel* note_;
  Subscription subscription_;
  Subscription clicks_;
};

}  // namespace rondora
