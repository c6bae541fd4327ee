#include "doubles/fake_windows.h"

namespace rondora {

class FakeWindows::FakeSettingsWindow final : public SettingsWindow {
 public:
  explicit FakeSettingsWindow(FakeWindows& windows) : windows_(windows) {}
  void show() override { ++windows_.settingsShown; }

 private:
  FakeWindows& windows_;
};

class FakeWindows::FakeOnboardingWindow final : public OnboardingWindow {
 public:
  explicit FakeOnboardingWindow(std::shared_ptr<Onboarding> state) : state_(std::move(state)) {}
  ~FakeOnboardingWindow() override { state_->isUp = false; }
  void present(std::function<void()> completion) override {
    state_->isUp = true;
    state_->completion = std::move(completion);
  }
  bool isUp() const override { return state_->isUp; }
  void closeAndFinish() override {
    const auto state = state_;
    state->finish();
  }

 private:
  std::shared_ptr<Onboarding> state_;
};

class FakeWindows::FakePopover final : public SnippetPreviewPopover {
 public:
  explicit FakePopover(FakeWindows& windows) : windows_(windows) {}
  void show(std::string_view text, const Place& place) override {
    windows_.previews.emplace_back(text);
    windows_.previewFrame = {place(kPreviewSize), kPreviewSize};
  }
  void hide() override {
    if (!windows_.previews.empty() && !windows_.previews.back().empty()) windows_.previews.emplace_back();
  }

 private:
  FakeWindows& windows_;
};

void FakeWindows::Onboarding::finish() {
  isUp = false;
  if (const auto finished = std::exchange(completion, nullptr)) finished();
}

std::unique_ptr<SettingsWindow> FakeWindows::makeSettingsWindow() {
  ++settingsWindowsMade;
  return std::make_unique<FakeSettingsWindow>(*this);
}

std::unique_ptr<OnboardingWindow> FakeWindows::makeOnboardingWindow() {
  ++onboardingWindowsMade;
  return std::make_unique<FakeOnboardingWindow>(onboarding_);
}

std::unique_ptr<SnippetPreviewPopover> FakeWindows::makeSnippetPreviewPopover() {
  return std::make_unique<FakePopover>(*this);
}

void FakeWindows::closeOnboarding() {
  if (!onboarding_->isUp) return;
  const auto state = onboarding_;
  state->finish();
}

}  // namespace rondora
