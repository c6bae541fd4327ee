#pragma once

#include <QCheckBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/qt/windows/findings_view.h"
#include "ui/qt/windows/hotkey_rows_view.h"
#include "ui/qt/windows/language_chooser.h"
#include "ui/qt/windows/qt_windows.h"

namespace rondora {

/// One window, reused each time it is shown.
class QtSettingsWindow : public SettingsWindow {
 public:
  explicit QtSettingsWindow(WindowContents contents);

  void show() override;

 private:
  void build();
  void fitScreen();
  void arrange();
  void connectButtons();
  void copyPath();
  void switchLogin(bool opens);
  void refreshTexts();

  WindowContents contents_;
  Subscription textsChanged_;
  QDialog window_;
  QLabel introduction_;
  QLabel documentHeading_;
  QLineEdit documentPath_;
  QAction copyAction_;
  QPushButton copy_;
  QPushButton openFolder_;
  QLabel languageLabel_;
  LanguageChooser language_;
  QCheckBox startAtLogin_;
  QLabel loginFailure_;
  QLabel hotkeysHeading_;
  HotkeyRowsView hotkeys_;
  QLabel sessionHeading_;
  FindingsView findings_;
  QPushButton quit_;
  QPushButton close_;
};

}  // namespace rondora
