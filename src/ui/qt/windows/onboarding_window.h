#pragma once

#include <QDialog>
#include <QLabel>
#include <QPushButton>
#include <QTimer>
#include <memory>

#include "ui/qt/windows/qt_windows.h"

class QScrollArea;

namespace rondora {

class FindingsView;
class LanguageChooser;
class WelcomeSteps;

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
  QWidget* makePage();
  QLayout* makeGreeting();
  QWidget* makeFoot();
  /// Shows the current texts and steps; every widget stays, and with it the focus.
  void refresh();
  void fitScreen();
  void handleClosed();

  WindowContents contents_;
  Subscription welcomeChanged_;
  std::function<void()> closed_;
  std::unique_ptr<QDialog> dialog_;
  QScrollArea* scroll_ = nullptr;  // owned by the dialog, as all widgets
  QLabel* headline_ = nullptr;
  QLabel* introduction_ = nullptr;
  WelcomeSteps* steps_ = nullptr;
  FindingsView* findings_ = nullptr;
  QLabel* whereItLives_ = nullptr;
  QWidget* foot_ = nullptr;
  QLabel* languageLabel_ = nullptr;
  LanguageChooser* language_ = nullptr;
  QPushButton* close_ = nullptr;
  /// A ring that opens comes before the marks of the steps.
  QTimer refresh_;
  QTimer reminder_;
};

}  // namespace rondora
