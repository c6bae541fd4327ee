#pragma once

#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <QWidget>

#include "ui/qt/language_chooser.h"
#include "ui/qt/qt_windows.h"

namespace rondora {

/// One window, reused however often it is shown.
class QtSettingsWindow : public SettingsWindow {
 public:
  explicit QtSettingsWindow(WindowContents contents);

  void show() override;

 private:
  void build();
  void refreshTexts();
  void refreshStatus();

  WindowContents contents_;
  Subscription textsChanged_;
  QWidget window_;
  QLabel introduction_;
  QLabel documentHeading_;
  QLabel documentPath_;
  QLabel languageLabel_;
  LanguageChooser language_;
  QLabel statusHeading_;
  QLabel status_;
  QPushButton openFolder_;
  QPushButton close_;
  QTimer refresh_;
};

}  // namespace rondora
