#include <csignal>
#include <random>

#include "desktop/key_logger.h"
#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr std::uint8_t kMenuKey = 135;
/// Opens the ring "Fn" together with Fn.
constexpr std::uint8_t kOtherKey = 45;
constexpr int kCommand = 0x100, kFunction = 0x20000;
/// Faster steps are debounced.
constexpr std::chrono::milliseconds kBetweenSteps{20};
constexpr std::chrono::milliseconds kRetaking{1200};
constexpr std::chrono::milliseconds kRegrabbing{500};

class EventTapTest : public UnderWindowManager {
 protected:
  void SetUp() override {
    UnderWindowManager::SetUp();
    logger_.emplace(desktop_.display(), "Logger");
    ASSERT_TRUE(waitForActive("Logger"));
  }

  void start() {
    EndToEndTest::start(document(
        {menu("Tab", {48, kCommand}, snippetItems("Tab", 4)), menu("Fn", {40, kFunction}, snippetItems("Fn", 4))}));
    // The first key of a keyboard makes window managers grab their keys again; the program takes its own back.
    client_.tap(key::q);
    ASSERT_TRUE(waitUntilSteady([&] { return desktop_.isWaiting(); }));
    client_.letServerRun(kRetaking);
    ASSERT_TRUE(waitForRest());
    logger_->take();
  }
  void openByTab() {
    client_.keyDown(key::super);
    client_.tap(key::tab);
    ASSERT_TRUE(program_->waitForRing());
    program_->settledPicture();
  }
  void step() {
    client_.letServerRun(kBetweenSteps);
    const Capture before = program_->settledPicture();
    client_.tap(key::tab);
    ASSERT_TRUE(program_->pictureAfterChange(before));
  }
  /// Random keys, and random chords that the window manager does not take.
  std::string typeAtRandom() {
    const int count = rounds(2000);
    const std::uint8_t alt = GetParam() == WindowManager::i3 ? key::shift : key::alt;
    std::string text = typeAtRandom({key::a, key::q, key::t, key::n, key::b, key::space, key::tab, key::shift,
                                     key::digit1, key::f9, key::enter, key::escape, key::down},
                                    count);
    return text + typeAtRandom({key::a, key::q, key::t, key::n, key::b, key::shift, key::control, alt}, count);
  }
  /// Presses or releases `count` times one of the keys, and returns what the logger received: "+38/0 -38/0".
  std::string typeAtRandom(const std::vector<std::uint8_t>& keys, int count) {
    std::mt19937 random(1);
    std::vector<std::uint8_t> held;
    for (int i = 0; i < count; ++i) {
      const std::uint8_t code = keys[random() % keys.size()];
      const auto place = std::ranges::find(held, code);
      place == held.end() ? client_.keyDown(code) : client_.keyUp(code);
      place == held.end() ? held.push_back(code) : void(held.erase(place));
    }
    for (const std::uint8_t code : held) client_.keyUp(code);
    return logged();
  }
  std::string logged() {
    std::string text;
    for (const LoggedKey& key : logger_->take()) {
      text += (key.isPress ? "+" : "-") + std::to_string(key.code) + "/" + std::to_string(key.state) + " ";
    }
    return text;
  }
  /// The key, typed now, reaches the window in front.
  bool isKeyboardUsable(std::uint8_t code = key::q) {
    const std::string expected = "+" + std::to_string(code) + "/0 -" + std::to_string(code) + "/0";
    return waitUntil([&] {
      logger_->takeFocus();
      client_.tap(code);
      return logged().find(expected) != std::string::npos;
    });
  }
  void holdFn() {
    client_.keyDown(kMenuKey);
    ASSERT_TRUE(waitUntil([&] { return !client_.isKeyDown(kMenuKey); }));
  }
  std::ptrdiff_t logged(const std::string& line) {
    return std::ranges::count_if(program_->logLines(), [&](auto& logged) { return logged.starts_with(line); });
  }
  bool waitForLog(const std::string& line) {
    return waitUntil([&] { return logged(line) > 0; });
  }

  /// The process of the program that shows a ring, whichever started it; 0 if none does.
  pid_t processWithRing() {
    for (const pid_t process : desktop_.processesNamed("rondora")) {
      const auto windows = client_.topLevels();
      const bool hasRing = std::ranges::any_of(windows, [&](const TopLevel& window) {
        return window.isViewable && window.isOverrideRedirect && client_.ownerOf(window.window) == process;
      });
      if (hasRing) return process;
    }
    return 0;
  }

  std::optional<KeyLogger> logger_;
};

INSTANTIATE_TEST_SUITE_P(Live, EventTapTest,
                         testing::Values(WindowManager::openbox, WindowManager::xfwm4, WindowManager::i3), nameOf);

TEST_P(EventTapTest, SuperTabAndFnOpenStepAndChoose) {
  start();
  for (int round = 0; round < 2; ++round) {
    ASSERT_NO_FATAL_FAILURE(openByTab());
    ASSERT_NO_FATAL_FAILURE(step());
    ASSERT_NO_FATAL_FAILURE(step());
    client_.keyUp(key::super);
    EXPECT_TRUE(waitForClipboard("Tab 1"));
    client_.keyDown(kMenuKey);
    client_.tap(kOtherKey);
    ASSERT_TRUE(program_->waitForRing());
    program_->settledPicture();
    client_.tap(key::digit2);
    EXPECT_TRUE(waitForClipboard("Fn 2"));
    client_.keyUp(kMenuKey);
    expectAtRest();
  }
  EXPECT_EQ(client_.title(client_.activeWindow()), "Logger") << "the window manager's switcher stays away";
  EXPECT_EQ(program_->terminate(), 0);
  logger_->take();
  client_.keyDown(kMenuKey);
  client_.tap(key::a);
  client_.keyUp(kMenuKey);
  EXPECT_EQ(logged(), "+135/0 +38/0 -38/0 -135/0 ");
}

TEST_P(EventTapTest, RegistrationBesideAHeldFnRunsNothing) {
  const std::string registered = "carbon backup for";
  start();
  ASSERT_NO_FATAL_FAILURE(holdFn());
  client_.tap(kOtherKey);
  ASSERT_TRUE(program_->waitForRing());
  client_.movePointer({kSomewhere.x + kMiddleOfRing, kSomewhere.y});
  const Capture picture = program_->settledPicture();
  const auto before = logged(registered);
  ASSERT_TRUE(desktop_.outputOf({"xmodmap", "-e", "add mod3 = Scroll_Lock"}));
  ASSERT_TRUE(waitUntil([&] { return logged(registered) > before; }));
  EXPECT_TRUE(program_->settledPicture() == picture && client_.clipboardText() != "Fn 1");
  client_.keyUp(kMenuKey);
  EXPECT_TRUE(waitForClipboard("Fn 1"));
  expectAtRest();
}

TEST_P(EventTapTest, OtherKeysArriveAsWithoutTheProgram) {
  logger_->take();
  const std::string without = typeAtRandom();
  EXPECT_GT(without.size(), 10U * static_cast<unsigned>(rounds(2000)));
  start();
  EXPECT_EQ(typeAtRandom(), without);
  ASSERT_NO_FATAL_FAILURE(holdFn());
  EXPECT_EQ(typeAtRandom(), without) << "Fn is held";
  client_.keyUp(kMenuKey);
  expectAtRest();
}

TEST_P(EventTapTest, KeyboardStaysUsableWhenTheProgramStopsOrDies) {
  start();
  const auto grab =
      xcb_grab_keyboard(client_.get(), 0, client_.root(), XCB_CURRENT_TIME, XCB_GRAB_MODE_ASYNC, XCB_GRAB_MODE_ASYNC);
  xcb_discard_reply(client_.get(), grab.sequence);
  client_.sync();
  EXPECT_TRUE(waitForLog("secure event input on, carbon backup="));
  xcb_ungrab_keyboard(client_.get(), XCB_CURRENT_TIME);
  client_.sync();

  kill(program_->pid(), SIGSTOP);
  for (const std::uint8_t held : {kMenuKey, key::tab}) {
    client_.keyDown(key::super);
    client_.keyDown(held);
    client_.keyUp(held);
    client_.keyUp(key::super);
    EXPECT_TRUE(isKeyboardUsable()) << int{held};
  }
  kill(program_->pid(), SIGCONT);
  ASSERT_NO_FATAL_FAILURE(expectAtRest());
  ASSERT_NO_FATAL_FAILURE(openByTab());
  kill(program_->pid(), SIGSTOP);
  EXPECT_TRUE(waitUntil([&] { return client_.nothingIsGrabbed(); })) << "the guard";
  client_.keyUp(key::super);
  EXPECT_TRUE(isKeyboardUsable());

  ASSERT_TRUE(waitUntil([&] {
    client_.keyUp(kMenuKey);
    client_.keyDown(kMenuKey);
    return waitUntil([&] { return !client_.isKeyDown(kMenuKey); }, kRegrabbing);
  })) << "started again";
  kill(desktop_.processesNamed("rondora").front(), SIGSTOP);
  EXPECT_TRUE(isKeyboardUsable(kOtherKey));
  client_.keyUp(kMenuKey);

  pid_t restarted = 0;
  ASSERT_TRUE(waitUntil([&] {
    client_.keyUp(key::super);
    client_.keyDown(key::super);
    client_.tap(key::tab);
    return waitUntil([&] { return (restarted = processWithRing()) != 0; }, kRegrabbing);
  })) << "started again";
  client_.keyDown(key::tab);
  kill(restarted, SIGKILL);
  client_.keyUp(key::tab);
  client_.keyUp(key::super);
  EXPECT_TRUE(isKeyboardUsable());

  ASSERT_TRUE(waitUntil([&] { return desktop_.processesNamed("rondora").empty(); }));
  start();
  ASSERT_NO_FATAL_FAILURE(holdFn());
  kill(program_->pid(), SIGKILL);
  EXPECT_TRUE(isKeyboardUsable(kOtherKey));
  client_.keyUp(kMenuKey);
}

}  // namespace
}  // namespace rondora::live
