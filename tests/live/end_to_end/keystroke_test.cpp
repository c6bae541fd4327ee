#include <signal.h>

#include "desktop/key_logger.h"
#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr std::uint16_t kShift = 0x01, kControl = 0x04, kAlt = 0x08, kSuper = 0x40;

/// An item: its position, its keystroke, and the key event that arrives.
struct Target {
  int right, down;
  int keyCode, flags;
  std::uint8_t code;
  std::uint16_t state;
};

// An arrow carries two more flags, which X11 applications do not see.
constexpr Target kTargets[] = {{0, -kMiddleOfRing, 8, kControlFlag, 54, kControl},
                               {kMiddleOfRing, 0, 123, kShiftFlag, 113, kShift},
                               {0, kMiddleOfRing, 100, 0, 74, 0},
                               {-kMiddleOfRing, 0, 35, kShiftFlag | kControlFlag | kOptionFlag | kCommandFlag, 33,
                                kShift | kControl | kAlt | kSuper}};

bool isModifier(const LoggedKey& key) {
  constexpr std::uint8_t kModifiers[] = {key::control, 105, key::shift, 62, key::alt, 108, key::super, 134};
  return std::ranges::count(kModifiers, key.code) != 0;
}

class KeystrokeTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    logger_.emplace(desktop_.display(), "Logger");
    ASSERT_TRUE(waitForActive("Logger"));
    std::vector<Document> items;
    for (const Target& target : kTargets) items.push_back(keystrokeItem(target.keyCode, target.flags));
    start(document({menu("Main", kControlAltSpace, items, -45)}));
  }

  /// Chooses the item: for an even `way` by release, for an odd one by a click while the chord is held.
  void choose(const Target& target, int way) {
    client_.movePointer(kSomewhere);
    ASSERT_TRUE(open());
    pointTo(target.right, target.down);
    way % 2 == 0 ? releaseChord() : client_.click();
    ASSERT_TRUE(program_->waitForNoRing());
  }
  std::vector<LoggedKey> arrived(const Target& target) {
    auto keys = logger_->takeUntilReleaseOf(target.code);
    std::erase_if(keys, isModifier);
    return keys;
  }

  std::optional<KeyLogger> logger_;
};

INSTANTIATE_TEST_SUITE_P(Live, KeystrokeTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::i3), nameOf);

TEST_P(KeystrokeTest, KeystrokesArriveOnceInTheActiveWindow) {
  KeyLogger other(desktop_.display(), "Other");
  ASSERT_TRUE(waitForActive("Other"));
  client_.requestActivation(logger_->window());
  ASSERT_TRUE(waitForActive("Logger"));
  logger_->take();
  for (int round = 0; round < rounds(8); ++round) {
    SCOPED_TRACE("round " + std::to_string(round));
    const Target& target = kTargets[round % std::size(kTargets)];
    ASSERT_NO_FATAL_FAILURE(choose(target, round / 4));
    const auto keys = arrived(target);
    releaseChord();
    ASSERT_EQ(keys.size(), 2U) << testing::PrintToString(program_->logLines());
    for (const LoggedKey& key : keys) {
      EXPECT_EQ(key.code, target.code);
      EXPECT_EQ(key.state, target.state);
    }
    EXPECT_TRUE(keys.front().isPress);
    EXPECT_FALSE(keys.back().isPress);
    ASSERT_TRUE(waitForRest());
  }
  expectAtRest();
  EXPECT_TRUE(std::ranges::all_of(logger_->take(), isModifier)) << "late";
  EXPECT_TRUE(std::ranges::all_of(other.take(), isModifier)) << "strayed";

  // The first keystroke falls due while the next ring is open.
  ASSERT_NO_FATAL_FAILURE(choose(kTargets[0], 0));
  client_.movePointer(kSomewhere);
  ASSERT_TRUE(open());
  client_.letServerRun(std::chrono::milliseconds(400));
  ASSERT_TRUE(program_->ring()) << "the typed key has closed it";
  pointTo(kTargets[1].right, kTargets[1].down);
  releaseChord();
  for (const Target& target : {kTargets[0], kTargets[1]}) {
    const auto keys = arrived(target);
    EXPECT_TRUE(keys.size() == 2 && keys.front().code == target.code) << keys.size();
  }
  expectAtRest();
}

/// The program is stopped while it holds a key.
class KilledWhileTypingTest : public KeystrokeTest {
 protected:
  const Target& target_ = kTargets[0];

  /// Stops the program between press and release. A busy machine lets some releases pass before they are seen.
  void stopWhileTyping() {
    for (bool isCaught = false; !isCaught;) {
      logger_->take();
      ASSERT_NO_FATAL_FAILURE(choose(target_, 0));
      ASSERT_TRUE(waitUntil([&] { return client_.isKeyDown(target_.code) || hasTyped(); }));
      program_->stop();
      isCaught = client_.isKeyDown(target_.code);
      if (!isCaught) kill(program_->pid(), SIGCONT);
    }
  }
  bool hasTyped() {
    return std::ranges::any_of(logger_->take(), [&](auto& key) { return key.code == target_.code && !key.isPress; });
  }
  void killProgram(int signal) {
    kill(program_->pid(), signal);
    kill(program_->pid(), SIGCONT);
    ASSERT_TRUE(program_->waitForExit());
  }
  /// The companion process that releases the keys if the program crashes.
  pid_t guard() const {
    const auto guards = desktop_.processesNamed("rondora-keys");
    return guards.empty() ? 0 : guards.front();
  }
};

INSTANTIATE_TEST_SUITE_P(Live, KilledWhileTypingTest, testing::Values(WindowManager::openbox), nameOf);

TEST_P(KilledWhileTypingTest, NoKeyStaysDownHoweverTheProgramEnds) {
  const Document configuration = Document::parse(readFile(RunningProgram::document(desktop_)));
  for (const int signal : {SIGTERM, SIGSEGV, SIGABRT, SIGKILL}) {
    SCOPED_TRACE(strsignal(signal));
    ASSERT_NO_FATAL_FAILURE(stopWhileTyping());
    ASSERT_NO_FATAL_FAILURE(killProgram(signal));
    EXPECT_TRUE(waitUntil([&] { return client_.keyboardIsAtRest(); }));
    EXPECT_TRUE(waitUntil([&] { return guard() == 0; }));
    start(configuration);
  }

  ASSERT_NO_FATAL_FAILURE(stopWhileTyping());
  const pid_t guardian = guard();
  ASSERT_NE(guardian, 0);
  kill(guardian, SIGKILL);
  ASSERT_TRUE(waitUntil([&] { return guard() == 0; }));
  ASSERT_NO_FATAL_FAILURE(killProgram(SIGKILL));
  EXPECT_TRUE(client_.isKeyDown(target_.code)) << "the key was released without the guard: this test shows nothing";
  start(configuration);
  EXPECT_TRUE(client_.keyboardIsAtRest()) << "the next start releases it";
}

}  // namespace
}  // namespace rondora::live
