#include <gtest/gtest.h>
#include <signal.h>

#include <algorithm>

#include "desktop/temporary_folder.h"
#include "end_to_end_test.h"

namespace rondora::live {
namespace {

/// The settings are open, and the keyboard walks to the button that records the hotkey of "Main".
class RecordingTest : public EndToEndTest {
 protected:
  void SetUp() override {
    EndToEndTest::SetUp();
    setenv("RONDORA_TRACE", "1", 1);
    start(document({menu("Main", kControlAltSpace, snippetItems("main", 4))}));
    unsetenv("RONDORA_TRACE");
    desktop_.outputOf({"gdbus", "call", "--session", "--dest", "io.github.rondora.Rondora", "--object-path",
                       "/io/github/rondora/Rondora", "--method", "io.github.rondora.Rondora.ShowSettings"});
    ASSERT_TRUE(waitForSettings());
    constexpr int kTabsToTheButton = 7;  // from the list of menus
    for (int i = 0; i < kTabsToTheButton; ++i) client_.tap(key::tab);
  }

  // A probe of the keyboard would itself hold it for a moment and so could refuse it to the program.
  void startRecording() {
    const auto recordings = [&] {
      return std::ranges::count_if(program_->logLines(),
                                   [](auto& line) { return line.ends_with("the recording has the keyboard"); });
    };
    const auto before = recordings();
    client_.tap(key::space);
    ASSERT_TRUE(waitUntil([&] { return recordings() > before; }));
    EXPECT_FALSE(client_.keyboardIsFree());
  }
  void pressTogether(std::uint8_t modifier, std::uint8_t keyCode) {
    client_.keyDown(modifier);
    client_.tap(keyCode);
    client_.keyUp(modifier);
  }
  bool waitForEnd() {
    return waitUntil([&] { return client_.keyboardIsFree(); });
  }
  Document savedHotkey() { return Document::parse(readFile(RunningProgram::document(desktop_)))["menus"][0]["hotkey"]; }
  bool waitForHotkey(int keyCode, int carbonModifiers) {
    const Document expected{{"keyCode", keyCode}, {"carbonModifiers", carbonModifiers}};
    return waitUntil([&] { return savedHotkey() == expected; });
  }
};

TEST_F(RecordingTest, HearsOwnHotkeysAndThoseOfTheWindowManager) {
  startRecording();
  holdChord(key::space);
  releaseChord();
  EXPECT_TRUE(waitForEnd());
  expectAtRest();
  EXPECT_FALSE(program_->ring()) << "the own hotkey opens nothing";
  EXPECT_TRUE(waitForHotkey(49, kControl | kOption));

  startRecording();
  pressTogether(key::alt, key::tab);
  EXPECT_TRUE(waitForEnd());
  EXPECT_TRUE(waitForHotkey(48, kOption));
  EXPECT_TRUE(waitForRest());
  EXPECT_EQ(client_.title(client_.activeWindow()), "Rondora Settings") << "the window manager did not switch";
}

TEST_F(RecordingTest, KeyCodesAreThoseOfTheKeyOnAnyLayout) {
  for (const char* const layout : {"de", "us -variant dvorak"}) {
    ASSERT_TRUE(desktop_.outputOf({"sh", "-c", std::string("setxkbmap ") + layout}));
    startRecording();
    pressTogether(key::control, key::q);
    EXPECT_TRUE(waitForEnd());
    EXPECT_TRUE(waitForHotkey(12, kControl)) << layout;
    startRecording();
    pressTogether(key::control, key::n);
    EXPECT_TRUE(waitForHotkey(45, kControl)) << layout;
    EXPECT_TRUE(waitForEnd());
  }
  client_.tap(key::enter);
  EXPECT_TRUE(waitForRest());
  client_.keyDown(key::control);
  client_.tap(key::n);
  EXPECT_TRUE(program_->waitForRing()) << "the recorded hotkey works at once";
  client_.keyUp(key::control);
}

TEST_F(RecordingTest, FnAloneAndWithAKey) {
  constexpr std::uint8_t kMenuKey = 135;  // in the place of Fn
  startRecording();
  pressTogether(kMenuKey, key::n);
  EXPECT_TRUE(waitForHotkey(45, 0x20000));
  EXPECT_TRUE(waitForEnd() && waitForRest());
  startRecording();
  client_.tap(kMenuKey);
  EXPECT_TRUE(waitForHotkey(63, 0));
  EXPECT_TRUE(waitForEnd() && waitForRest());
}

TEST_F(RecordingTest, EscapeARingALockClicksAndFocusEndIt) {
  const auto file = RunningProgram::document(desktop_);
  const std::string main = Document::parse(readFile(file))["menus"][0]["id"];
  const auto end = [&](auto how) {
    startRecording();
    how();
    EXPECT_TRUE(waitForEnd());
    EXPECT_EQ(savedHotkey()["keyCode"], 49);
  };
  end([&] { client_.tap(key::escape); });
  EXPECT_EQ(client_.title(client_.activeWindow()), "Rondora Settings") << "Escape did not close the window";
  end([&] {
    ASSERT_TRUE(trigger(main) && program_->waitForRing());
    client_.tap(key::escape);
  });
  end([&] {
    desktop_.outputOf({"gdbus", "emit", "--session", "--object-path", "/org/freedesktop/login1/session/_32", "--signal",
                       "org.freedesktop.login1.Session.Lock"});
  });
  end([&] {
    EXPECT_TRUE(waitUntil([&] {  // a window manager may drop a request
      client_.requestActivation(client_.windowsTitled("Bystander").front());
      return client_.title(client_.activeWindow()) == "Bystander";
    }));
  });
  client_.requestActivation(program_->managedWindows().front());
  ASSERT_TRUE(waitForSettings());
  // Last, because it may take the focus elsewhere.
  end([&] { client_.click(); });
}

/// The guard frees the keyboard although the program itself cannot.
TEST_F(RecordingTest, StoppedProgramDoesNotKeepTheKeyboard) {
  startRecording();
  ASSERT_EQ(kill(program_->pid(), SIGSTOP), 0);
  EXPECT_TRUE(waitForEnd());
}

}  // namespace
}  // namespace rondora::live
