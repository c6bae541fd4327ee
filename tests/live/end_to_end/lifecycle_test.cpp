#include <csignal>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr std::uint16_t kControlAlt = XCB_MOD_MASK_CONTROL | XCB_MOD_MASK_1;

Document mainMenu() { return menu("Main", kControlAltSpace, snippetItems("Main", 4), -45); }

class LifecycleTest : public EndToEndTest {
 protected:
  void expectRingWorks() {
    choose(kMiddleOfRing, 0);
    EXPECT_TRUE(waitForClipboard("Main 1"));
    expectAtRest();
  }
};

TEST_F(LifecycleTest, HotkeyOfAnotherProgramIsLeftAloneAndTheOthersWork) {
  ASSERT_TRUE(client_.grabKey(key::t, kControlAlt));
  start(document({menu("Taken", kControlAltT, snippetItems("Taken", 4)), mainMenu()}));
  EXPECT_EQ(program_->boundKeys(), 4U) << "a hotkey that is taken is given up whole";
  holdChord(key::t);
  releaseChord();
  expectRingWorks();
}

TEST_F(LifecycleTest, EndsInOrderWhenAsked) {
  start(document({mainMenu()}));
  ASSERT_TRUE(open());
  EXPECT_EQ(program_->terminate(), 0);
  releaseChord();
  EXPECT_TRUE(client_.nothingIsGrabbed());
  EXPECT_TRUE(client_.grabKey(key::space, kControlAlt)) << "the hotkey is free again";
  EXPECT_EQ(client_.title(client_.activeWindow()), "Bystander");
}

/// The introduction is up: it would be over if its window were closed.
class EndTest : public LifecycleTest {
 protected:
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

TEST_F(EndTest, SignalsEndItInOrderAndTheIntroductionComesBack) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    ASSERT_NO_FATAL_FAILURE(startWithIntroduction());
    kill(program_->pid(), signal);
    EXPECT_EQ(program_->waitForExit(), 0) << "signal " << signal;
    EXPECT_TRUE(introductionIsDue()) << "signal " << signal;
  }
}

TEST_F(EndTest, SessionManagerEndsItInOrderAndDoesNotStartItAgain) {
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
  const auto path = RunningProgram::document(desktop_);
  const Document written = Document::parse(readFile(path));
  EXPECT_EQ(written["schemaVersion"], 3);
  EXPECT_EQ(written["menus"].size(), 3U);
  std::vector<std::filesystem::path> backups;
  for (const auto& entry : std::filesystem::directory_iterator(path.parent_path())) {
    if (entry.path().filename().string().starts_with("config.broken-")) backups.push_back(entry.path());
  }
  ASSERT_EQ(backups.size(), 1U);
  EXPECT_EQ(readFile(backups.front()), "{");
  ASSERT_TRUE(open()) << "the first-run ring";
  client_.tap(key::escape);
  releaseChord();
  expectAtRest();
}

}  // namespace
}  // namespace rondora::live
