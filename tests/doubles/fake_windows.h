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
    return std::make_unique<FakeOnboardingWindow>(*this);
  }
  std::unique_ptr<SnippetPreviewPopover> makeSnippetPreviewPopover() override {
    return std::make_unique<FakePopover>(*this);
  }
  void closePopups() override {}

  /// Closes the window, as the user or the program does; no effect when it is not visible. The call may destroy it.
  void closeOnboarding() {
    if (std::exchange(isOnboardingUp, false)) onboardingClosed_();
  }

  int settingsWindowsMade = 0;
  int settingsShown = 0;
  int onboardingWindowsMade = 0;
  bool isOnboardingUp = false;
  int reminders = 0;
  /// Previewed texts; an empty one each time the preview is hidden.
  std::vector<std::string> previews;
  std::string previewHint;

 private:
  struct FakeSettingsWindow final : SettingsWindow {
    explicit FakeSettingsWindow(FakeWindows& windows) : windows_(windows) {}
    void show() override { ++windows_.settingsShown; }
    void close() override {}
    FakeWindows& windows_;
  };

  struct FakeOnboardingWindow final : OnboardingWindow {
    explicit FakeOnboardingWindow(FakeWindows& windows) : windows_(windows) {}
    ~FakeOnboardingWindow() override { windows_.isOnboardingUp = false; }
    void present(std::function<void()> closed) override {
      windows_.isOnboardingUp = true;
      windows_.onboardingClosed_ = std::move(closed);
    }
    bool isUp() const override { return windows_.isOnboardingUp; }
    void close() override { windows_.closeOnboarding(); }
    void remindToHold() override { ++windows_.reminders; }
    FakeWindows& windows_;
  };

  struct FakePopover final : SnippetPreviewPopover {
    explicit FakePopover(FakeWindows& windows) : windows_(windows) {}
    void show(const SnippetPreview& preview, const Place& /*place*/) override {
      windows_.previews.push_back(preview.text);
      windows_.previewHint = preview.hint;
    }
    void hide() override {
      if (!windows_.previews.empty() && !windows_.previews.back().empty()) windows_.previews.emplace_back();
    }
    FakeWindows& windows_;
  };

  std::function<void()> onboardingClosed_;
};

}  // namespace rondora
