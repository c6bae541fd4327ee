#pragma once

#include <QDialog>
#include <memory>

#include "ui/qt/windows/qt_windows.h"

class QVBoxLayout;

namespace rondora {

class QtOnboardingWindow : public OnboardingWindow {
 public:
  explicit QtOnboardingWindow(WindowContents contents);
  ~QtOnboardingWindow() override;

  void present(std::function<void()> closed) override;
  bool isUp() const override;
  void close() override;

 private:
  void build();
  /// Rebuilds the window's contents with the current texts.
  void fill();
  QWidget* makePage(const WindowTexts& texts);
  void addFindings(QVBoxLayout& column, const WindowTexts& texts);
  void handleClosed();

  WindowContents contents_;
  Subscription textsChanged_;
  std::function<void()> closed_;
  std::unique_ptr<QDialog> dialog_;
  QWidget* page_ = nullptr;  // owned by the dialog
};

}  // namespace rondora
