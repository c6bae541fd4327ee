#pragma once

#include <AppKit/AppKit.h>

#include <functional>

#include "platform/main_queue.h"
#include "platform/windows.h"
#include "settings/window_contents.h"
#include "ui/appkit/windows/findings_view.h"
#include "ui/appkit/windows/previous_application.h"
#include "ui/appkit/windows/welcome_steps_view.h"

@class RondoraPageWindow;
@class RondoraWindowDelegate;

namespace rondora::appkit {

class AppKitOnboardingWindow final : public OnboardingWindow {
 public:
  /// `mainQueue` must outlive the object.
  AppKitOnboardingWindow(WindowContents contents, MainQueue& mainQueue);
  ~AppKitOnboardingWindow() override;
  AppKitOnboardingWindow(const AppKitOnboardingWindow&) = delete;
  AppKitOnboardingWindow& operator=(const AppKitOnboardingWindow&) = delete;

  void present(std::function<void()> closed) override;
  bool isUp() const override { return window_ != nil; }
  void close() override;
  void remindToHold() override;

 private:
  void build();
  NSView* makeGreeting();
  NSView* makeFoot();
  /// Shows the present texts and steps; every control stays, and with it the focus.
  void refresh();
  void handleClosed();

  WindowContents contents_;
  MainQueue& mainQueue_;
  PreviousApplication previous_;
  WelcomeStepsView steps_;
  FindingsView findings_;
  std::function<void()> closed_;
  RondoraWindowDelegate* delegate_;  // the window's reference is weak
  RondoraPageWindow* window_ = nil;
  NSTextField* headline_ = nil;
  NSTextField* introduction_ = nil;
  NSTextField* whereItLives_ = nil;
  NSTextField* languageLabel_ = nil;
  NSPopUpButton* language_ = nil;
  NSButton* close_ = nil;
  Subscription welcomeChanged_;
  /// A ring that opens comes before the marks of the steps.
  Subscription refresh_;
  Subscription reminder_;
};

}  // namespace rondora::appkit
