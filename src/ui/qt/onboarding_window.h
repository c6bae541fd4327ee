#pragma once

#include <QDialog>
#include <memory>

#include "ui/qt/qt_windows.h"

namespace rondora {

class QtOnboardingWindow : public OnboardingWindow {
 public:
  explicit QtOnboardingWindow(std::function<WindowTexts()> texts);
  ~QtOnboardingWindow() override;

  void present(std::function<void()> completion) override;
  bool isUp() const override;
  void closeAndFinish() override;

 private:
  void build();
  void finish();

  std::function<WindowTexts()> texts_;
  std::function<void()> completion_;
  std::unique_ptr<QDialog> dialog_;
};

}  // namespace rondora
