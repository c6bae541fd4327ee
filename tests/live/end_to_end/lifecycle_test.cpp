#include <csignal>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

Document mainMenu() { return menu("Main", kControlAltSpace, snippetItems("Main", 4), -45); }

class LifecycleTest : public EndToEndTest {
 protected:
  void expectRingWorks() {
    choose(kMiddleOfRing, 0);
    EXPECT_TRUE(waitForClipboard("Main 1"));
    expectAtRest();
  }
  /// The introduction is shown; closing its window would complete it.
  void startWithIntroduction() {
    program_.emplace(desktop_, client_, document({mainMenu()}).dump(), Introduction::due);
    ASSERT_TRUE(waitForWindow());
  }
  bool introductionIsDue() const {
    const std::string defaults = readFile(RunningProgram::defaults(desktop_));
    return defaults.find("NSInitialToolTipDelay") != std::string::npos &&
           defaults.find("pie.hasSeenPermissionIntro=true") == std::string::npos;
  }
};

TEST_F(LifecycleTest, OtherHotkeysWorkUntilTheServerIsLost) {
  // With Num Lock: the variants without it can be grabbed, and are released again.
  ASSERT_TRUE(client_.grabKey(key::b, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1 | XCB_MOD_MASK_2));
  start(document({menu("Taken", kControlAltB, snippetItems("Taken", 4)), mainMenu()}));
  EXPECT_EQ(program_->boundKeys(), 4U) << "a hotkey that is taken keeps none of its grabs";
  holdChord(key::b);
  releaseChord();
  expectRingWorks();
  const auto before = program_->logLines().size();
  desktop_.killServer();
  EXPECT_EQ(program_->waitForExit(), 1);
  EXPECT_EQ(program_->logLines().size(), before + 1) << readFile(desktop_.logFile("rondora"));
}

TEST_F(LifecycleTest, WelcomeEndsWithReturnOnceARingHasBeenUsed) {
  ASSERT_NO_FATAL_FAILURE(startWithIntroduction());
  ASSERT_TRUE(waitForActive("Welcome to Rondora"));
  client_.tap(key::enter);
  expectRingWorks();
  EXPECT_TRUE(introductionIsDue());
  ASSERT_TRUE(waitForActive("Welcome to Rondora"));
  client_.tap(key::enter);
  EXPECT_TRUE(waitForSettings());
  EXPECT_FALSE(introductionIsDue());
}

TEST_F(LifecycleTest, SignalsEndInOrderAndKeepTheIntroductionDue) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ASSERT_NO_FATAL_FAILURE(startWithIntroduction());
    ASSERT_TRUE(open());
    kill(program_->pid(), signal);
    EXPECT_EQ(program_->waitForExit(), 0) << "signal " << signal;
    releaseChord();
    EXPECT_TRUE(introductionIsDue()) << "signal " << signal;
  }
}

TEST_F(LifecycleTest, SessionEndIsOrderlyAndRestartsNothing) {
  desktop_.startSessionManager();
  ASSERT_NO_FATAL_FAILURE(startWithIntroduction());
  const auto witness = desktop_.start({"xterm", "-T", "Witness", "-e", "cat"});
  ASSERT_TRUE(waitUntil([&] { return !client_.windowsTitled("Witness").empty(); }));
  desktop_.endSession();
  EXPECT_EQ(program_->waitForExit(), 0);
  EXPECT_TRUE(introductionIsDue());
  EXPECT_TRUE(waitUntil([&] { return readFile(desktop_.savedSession()).find("xterm") != std::string::npos; }));
  EXPECT_EQ(readFile(desktop_.savedSession()).find("rondora"), std::string::npos);
}

TEST_F(LifecycleTest, BrokenDocumentOpensTheSettingsAndGivesTheFirstRunRing) {
  program_.emplace(desktop_, client_, "{");
  ASSERT_TRUE(waitForSettings());
  ASSERT_TRUE(open());
  client_.tap(key::escape);
  releaseChord();
  expectAtRest();
}

}  // namespace
}  // namespace rondora::live
