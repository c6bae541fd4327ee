#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// Faster steps count as one.
constexpr std::chrono::milliseconds kBetweenSteps{20};

/// Terminals that pass for applications, and the ring of what is running.
class SwitcherTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    Document switcher = menu("Switcher", kControlAltSpace, {});
    switcher["kind"] = "runningApps";
    switcher["runningAppsExcludedBundleIds"] = {"DEBIAN-XTERM"};  // the bystander
    for (const char* title : {"Alpha", "Beta", "Gamma"}) desktop_.addApplication(title, title);
    start(document({switcher}));
    alpha_ = open("Alpha");
    beta_ = open("Beta");
  }

  std::unique_ptr<ChildProcess> open(const std::string& title) {
    auto process = desktop_.start({"xterm", "-name", title, "-class", title, "-T", title, "-e", "cat"});
    EXPECT_TRUE(waitForActive(title)) << title;
    return process;
  }
  /// As fast as the server takes it: presses the trigger that often and lets go, while the ring is still to come.
  void switchBy(int presses) {
    client_.keyDown(key::control);
    client_.keyDown(key::alt);
    for (int i = 0; i < presses; ++i) client_.tap(key::space);
    releaseChord();
  }

  std::unique_ptr<ChildProcess> alpha_;
  std::unique_ptr<ChildProcess> beta_;
};

INSTANTIATE_TEST_SUITE_P(Live, SwitcherTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::i3), nameOf);

TEST_P(SwitcherTest, TwoTapsGoToThePreviousApplicationAndBackAHundredTimes) {
  for (int round = 0; round < 100; ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    if (round % 2 == 0) {
      switchBy(2);
    } else {
      ASSERT_TRUE(UnderWindowManager::open());
      client_.tap(key::space);
      releaseChord();
    }
    ASSERT_TRUE(waitForActive(round % 2 == 0 ? "Alpha" : "Beta"));
    ASSERT_TRUE(program_->waitForNoRing());
  }
  expectAtRest();
}

TEST_P(SwitcherTest, OneTapStaysAndAnExcludedApplicationNeverShows) {
  for (const char* title : {"Bystander", "Alpha"}) {
    client_.requestActivation(client_.windowsTitled(title).front());
    ASSERT_TRUE(waitForActive(title));
  }
  ASSERT_TRUE(UnderWindowManager::open());
  // Once around the ring of Beta and Alpha, and one further.
  for (int step = 0; step < 3; ++step) {
    const Capture before = program_->settledPicture();
    client_.letServerRun(kBetweenSteps);
    client_.tap(key::space);
    ASSERT_TRUE(program_->pictureAfterChange(before)) << "step " << step;
  }
  releaseChord();
  ASSERT_TRUE(waitForActive("Beta"));
  ASSERT_TRUE(UnderWindowManager::open());
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());
  switchBy(2);
  EXPECT_TRUE(waitForActive("Alpha")) << "one tap changed something";
}

TEST_P(SwitcherTest, AnApplicationThatQuitsWhileTheRingIsOpenIsNotStarted) {
  const auto gamma = open("Gamma");
  ASSERT_TRUE(UnderWindowManager::open());
  client_.tap(key::space);
  beta_->terminate();
  ASSERT_TRUE(waitUntil([&] { return client_.windowsTitled("Beta").empty(); }));
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());
  switchBy(2);
  ASSERT_TRUE(waitForActive("Alpha"));
  EXPECT_TRUE(client_.windowsTitled("Beta").empty());
}

}  // namespace
}  // namespace rondora::live
