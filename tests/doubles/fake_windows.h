#pragma once

#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "platform/windows.h"

namespace rondora {

/// The program's own windows.
class FakeWindows final : public Windows {
 public:
  std::unique_ptr<SettingsWindow> makeSettingsWindow() override;
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override;
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override;

  /// The user closes the onboarding window; nothing when it is not up.
  void closeOnboarding();
  bool isOnboardingUp() const { return onboarding_->isUp; }

  int settingsWindowsMade = 0;
  int settingsShown = 0;
  int onboardingWindowsMade = 0;
  /// The texts shown beside the pointer; an empty one for each time that the preview went away.
  std::vector<std::string> previews;
  static constexpr Size kPreviewSize{200, 60};
  /// Where the last one was, in the coordinate space of the screens.
  Rect previewFrame;

 private:
  struct Onboarding {
    bool isUp = false;
    std::function<void()> completion;
    void finish();
  };
  class FakeSettingsWindow;
  class FakeOnboardingWindow;
  class FakePopover;

  std::shared_ptr<Onboarding> onboarding_ = std::make_shared<Onboarding>();
};

}  // namespace rondora
