#pragma once

#include <memory>

#include "ui/qt/windows/qt_windows.h"

namespace rondora {

class SettingsView;

/// The settings' window. What it shows is made when it opens and released when it closes.
class QtSettingsWindow : public SettingsWindow {
 public:
  QtSettingsWindow(WindowContents contents, IconDrawing drawing);
  ~QtSettingsWindow() override;

  void show() override;
  void close() override;

 private:
  void release();

  WindowContents contents_;
  IconDrawing drawing_;
  std::unique_ptr<SettingsView> view_;
};

}  // namespace rondora
