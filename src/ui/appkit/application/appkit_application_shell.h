#pragma once

#include <AppKit/AppKit.h>

#include "platform/application_shell.h"

@class RondoraApplicationDelegate;

namespace rondora::appkit {

/// The shared application object, and what its delegate is told.
class AppKitApplicationShell final : public ApplicationShell {
 public:
  AppKitApplicationShell();
  ~AppKitApplicationShell() override;
  AppKitApplicationShell(const AppKitApplicationShell&) = delete;
  AppKitApplicationShell& operator=(const AppKitApplicationShell&) = delete;

  /// Runs the application's run loop, which ends with the process.
  void run(std::function<void()> didFinishLaunching, std::function<void()> willTerminate);
  /// Called when the user opens the program that runs already.
  void setReopened(std::function<void()> reopened);

  void setActivationPolicy(ActivationPolicy policy) override;
  void setMainMenu(std::vector<MenuEntry> entries) override;
  void activateIgnoringOtherApps() override;
  void terminate() override;
  void openOwnApplication(const OpenConfiguration& configuration, std::function<void()> opened) override;
  void setShouldTerminateAfterLastWindowClosed(std::function<bool()> shouldTerminate) override;
  [[nodiscard]] Subscription onDidBecomeActive(std::function<void()> observer) override;

 private:
  /// The application's reference is weak.
  RondoraApplicationDelegate* delegate_;
};

}  // namespace rondora::appkit
