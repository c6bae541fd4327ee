#include <csignal>
#include <set>

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
  /// The introduction is up: it would be over if its window were closed.
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

TEST_F(LifecycleTest, HotkeyOfAnotherProgramIsLeftAloneAndTheOthersWork) {
  ASSERT_TRUE(client_.grabKey(key::b, XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1));
  start(document({menu("Taken", kControlAltB, snippetItems("Taken", 4)), mainMenu()}));
  EXPECT_EQ(program_->boundKeys(), 4U) << "a hotkey that is taken is given up whole";
  holdChord(key::b);
  releaseChord();
  expectRingWorks();
}

TEST_F(LifecycleTest, SignalsEndItInOrderAndTheIntroductionComesBack) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ASSERT_NO_FATAL_FAILURE(startWithIntroduction());
    ASSERT_TRUE(open());
    kill(program_->pid(), signal);
    EXPECT_EQ(program_->waitForExit(), 0) << "signal " << signal;
    releaseChord();
    EXPECT_TRUE(introductionIsDue()) << "signal " << signal;
  }
}

TEST_F(LifecycleTest, SessionManagerEndsItInOrderAndDoesNotStartItAgain) {
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

TEST_F(LifecycleTest, LostServerEndsItWithOneLine) {
  start(document({mainMenu()}));
  expectRingWorks();
  const auto before = program_->logLines().size();
  desktop_.killServer();
  EXPECT_EQ(program_->waitForExit(), 1);
  EXPECT_EQ(program_->logLines().size(), before + 1) << readFile(desktop_.logFile("rondora"));
}

TEST_F(LifecycleTest, BrokenDocumentIsKeptAsideAndReplaced) {
  program_.emplace(desktop_, client_, "{");
  ASSERT_TRUE(open()) << "the first-run ring";
  client_.tap(key::escape);
  releaseChord();
  expectAtRest();
  std::multiset<std::string> texts;
  for (const auto& entry : std::filesystem::directory_iterator(RunningProgram::document(desktop_).parent_path())) {
    if (entry.path().extension() == ".json") texts.insert(readFile(entry.path()));
  }
  EXPECT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts.count("{"), 1U);
}

}  // namespace
}  // namespace rondora::live
