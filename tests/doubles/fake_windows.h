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
  std::unique_ptr<SettingsWindow> makeSettingsWindow() override {
    ++settingsWindowsMade;
    return std::make_unique<FakeSettingsWindow>(*this);
  }
  std::unique_ptr<OnboardingWindow> makeOnboardingWindow() override {
    ++onboardingWindowsMade;
    return std::make_unique<FakeOnboardingWindow>(onboarding_);
  }
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override {
    return std::make_unique<FakePopover>(*this);
  }

  /// The user closes the onboarding window; nothing when it is not up.
  void closeOnboarding() {
    if (onboarding_->isUp) finish(onboarding_);
  }
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
  };
  using OnboardingRef = std::shared_ptr<Onboarding>;

  /// Whoever is told may end the window.
  static void finish(OnboardingRef onboarding) {
    onboarding->isUp = false;
    if (const auto finished = std::exchange(onboarding->completion, nullptr)) finished();
  }

  struct FakeSettingsWindow final : SettingsWindow {
    explicit FakeSettingsWindow(FakeWindows& windows) : windows_(windows) {}
    void show() override { ++windows_.settingsShown; }
    FakeWindows& windows_;
  };

  struct FakeOnboardingWindow final : OnboardingWindow {
    explicit FakeOnboardingWindow(OnboardingRef state) : state_(std::move(state)) {}
    ~FakeOnboardingWindow() override { state_->isUp = false; }
    void present(std::function<void()> completion) override { *state_ = {true, std::move(completion)}; }
    bool isUp() const override { return state_->isUp; }
    void closeAndFinish() override { finish(state_); }
    OnboardingRef state_;
  };

  struct FakePopover final : SnippetPreviewPopover {
    explicit FakePopover(FakeWindows& windows) : windows_(windows) {}
    void show(std::string_view text, const Place& place) override {
      windows_.previews.emplace_back(text);
      windows_.previewFrame = {place(kPreviewSize), kPreviewSize};
    }
    void hide() override {
      if (!windows_.previews.empty() && !windows_.previews.back().empty()) windows_.previews.emplace_back();
    }
    FakeWindows& windows_;
  };

  OnboardingRef onboarding_ = std::make_shared<Onboarding>();
};

}  // namespace rondora
