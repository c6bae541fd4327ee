#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// Faster steps are debounced.
constexpr std::chrono::milliseconds kBetweenSteps{20};

/// Terminals as applications, and the ring of running applications.
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
  /// Presses the trigger that often and releases the chord as fast as the server accepts it, before the ring is mapped.
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

TEST_P(SwitcherTest, TwoTapsSwitchBackAndForthAHundredTimes) {
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

TEST_P(SwitcherTest, OneTapStaysAndOthersAreExcludedOrEnded) {
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
  EXPECT_TRUE(waitForActive("Alpha")) << "one tap changed the order";

  const auto gamma = open("Gamma");
  ASSERT_TRUE(UnderWindowManager::open());
  client_.tap(key::space);
  alpha_->terminate();  // while it is highlighted
  ASSERT_TRUE(waitUntil([&] { return client_.windowsTitled("Alpha").empty(); }));
  releaseChord();
  ASSERT_TRUE(program_->waitForNoRing());
  switchBy(2);
  ASSERT_TRUE(waitForActive("Beta"));
  EXPECT_TRUE(client_.windowsTitled("Alpha").empty()) << "started again";
}

}  // namespace
}  // namespace rondora::live
