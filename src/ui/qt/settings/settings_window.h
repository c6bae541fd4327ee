#pragma once

#include <memory>

#include "platform/windows.h"
#include "settings/window_contents.h"
#include "ui/qt/settings/settings_drawing.h"

namespace rondora {

class SettingsView;

/// The settings' window. What it shows is made when it opens and released when it closes.
class QtSettingsWindow : public SettingsWindow {
 public:
  QtSettingsWindow(WindowContents contents, MakeSettingsDrawing makeDrawing);
  ~QtSettingsWindow() override;

  void show() override;
  void close() override;

 private:
  void release();

  WindowContents contents_;
  MakeSettingsDrawing makeDrawing_;
  std::unique_ptr<SettingsView> view_;
};

}  // namespace rondora
