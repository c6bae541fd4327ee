#pragma once

#include <QDialog>
#include <QTimer>
#include <memory>

#include "ui/qt/windows/qt_windows.h"

class QScrollArea;

namespace rondora {

class QtOnboardingWindow : public OnboardingWindow {
 public:
  explicit QtOnboardingWindow(WindowContents contents);
  ~QtOnboardingWindow() override;

  void present(std::function<void()> closed) override;
  bool isUp() const override;
  void close() override;
  void remindToHold() override;

 private:
  void build();
  /// Rebuilds the window's contents with the current texts.
  void fill();
  QWidget* makePage(const WindowTexts& texts);
  QWidget* makeInstructions(const WindowTexts& texts);
  QWidget* makeFindings(const WindowTexts& texts);
  QWidget* makeFoot(const WindowTexts& texts);
  void emphasize(bool isEmphasized);
  void fitScreen();
  void handleClosed();

  WindowContents contents_;
  Subscription textsChanged_;
  std::function<void()> closed_;
  std::unique_ptr<QDialog> dialog_;
  QScrollArea* scroll_ = nullptr;  // owned by the dialog, as all widgets
  QWidget* instructions_ = nullptr;
  QWidget* foot_ = nullptr;
  QTimer reminder_;
};

}  // namespace rondora
