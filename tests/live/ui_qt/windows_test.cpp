#include <gtest/gtest.h>

#include <QApplication>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <memory>

#include "ui/qt/qt_pasteboard.h"
#include "ui/qt/qt_windows.h"

namespace rondora {
namespace {

/// The program's windows that are on the screen.
std::vector<QWidget*> windowsUp() {
  std::vector<QWidget*> result;
  for (QWidget* widget : QApplication::topLevelWidgets()) {
    if (widget->isVisible()) result.push_back(widget);
  }
  return result;
}

bool shows(const QWidget& window, const QString& text) {
  for (const QLabel* label : window.findChildren<QLabel*>()) {
    if (label->isVisible() && label->text().contains(text)) return true;
  }
  return false;
}

void click(const QWidget& window, const QString& title) {
  for (QPushButton* button : window.findChildren<QPushButton*>()) {
    if (button->text() == title) return button->click();
  }
  FAIL() << "no button " << title.toStdString();
}

class WindowsTest : public testing::Test {
 protected:
  WindowsTest() {
    texts.settingsTitle = "Settings";
    texts.openFolder = "Open folder";
    texts.copy = "Copy";
    texts.language = "Language:";
    texts.works = "Works";
    texts.quit = "Quit";
    texts.close = "Close";
    texts.onboardingHeadline = "Hello";
    texts.onboardingHotkey = "Ctrl+Alt+Space";
    texts.onboardingDone = "Done";
  }

  WindowTexts texts;
  int foldersOpened = 0;
  AppLanguage language = AppLanguage::english;
  std::vector<AppLanguage> choices;
  std::vector<SessionFinding> findings{{true, "Hotkeys: 2", ""}};
  int quits = 0;
  Signal<> textsChanged;
  QtWindows windows{WindowContents{
      [this] { return texts; },
      [this](std::function<void()> observer) { return textsChanged.subscribe(std::move(observer)); },
      "/home/user/config.json", [this] { ++foldersOpened; }, [this] { return language; },
      [this](AppLanguage choice) { choices.push_back(choice); }, [this] { ++quits; }, [this] { return findings; }}};
};

void press(QWidget& window, int key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
  QTest::keyClick(&window, static_cast<Qt::Key>(key), modifiers);
}

TEST_F(WindowsTest, TheSettingsWindowIsReusedAndShowsWhatIsTrueNow) {
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  ASSERT_EQ(windowsUp().size(), 1U);
  QWidget* window = windowsUp().front();
  EXPECT_TRUE(shows(*window, "Hotkeys: 2"));
  findings = {{false, "Taken: Main", "Choose another"}};
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(*window, "Taken: Main") && shows(*window, "Choose another"); }));
  EXPECT_FALSE(shows(*window, "Hotkeys: 2"));
  click(*window, "Close");
  EXPECT_TRUE(windowsUp().empty());

  findings = {{true, "Hotkeys: 3", ""}};
  texts.settingsTitle = "الإعدادات";
  settings->show();
  EXPECT_EQ(windowsUp(), std::vector<QWidget*>{window});
  EXPECT_TRUE(shows(*window, "Hotkeys: 3"));
  EXPECT_EQ(window->windowTitle().toStdString(), texts.settingsTitle);
}

TEST_F(WindowsTest, TheSettingsWindowCanBeUsedByKeyboardAlone) {
  texts.documentHeading = "File:";
  const auto settings = windows.makeSettingsWindow();
  for (const auto& [key, modifiers] : std::vector<std::pair<Qt::Key, Qt::KeyboardModifier>>{
           {Qt::Key_Escape, Qt::NoModifier}, {Qt::Key_W, Qt::ControlModifier}, {Qt::Key_Return, Qt::NoModifier}}) {
    settings->show();
    ASSERT_EQ(windowsUp().size(), 1U);
    ASSERT_TRUE(QTest::qWaitForWindowActive(windowsUp().front()));
    press(*windowsUp().front(), key, modifiers);
    EXPECT_TRUE(windowsUp().empty()) << key;
  }
  settings->show();
  QWidget& window = *windowsUp().front();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  std::vector<std::string> names;
  for (int tabs = 0; tabs < 7; ++tabs) {
    press(*window.focusWidget(), Qt::Key_Tab);
    const auto* button = qobject_cast<QPushButton*>(window.focusWidget());
    names.push_back((button != nullptr ? button->text() : window.focusWidget()->accessibleName()).toStdString());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"File:", "Copy", "Open folder", "Language:", "Works: Hotkeys: 2", "Quit",
                                             "Close"}));
  click(window, "Open folder");
  EXPECT_EQ(foldersOpened, 1);
  click(window, "Copy");
  EXPECT_EQ(QtPasteboard().data("text/plain"), "/home/user/config.json");
  press(window, Qt::Key_Q, Qt::ControlModifier);
  EXPECT_EQ(quits, 1);
}

TEST_F(WindowsTest, TheUserChoosesTheLanguageAndScrollingDoesNot) {
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  auto* chooser = windowsUp().front()->findChild<QComboBox*>();
  ASSERT_NE(chooser, nullptr);
  EXPECT_EQ(chooser->count(), static_cast<int>(kAppLanguageCount));
  EXPECT_EQ(chooser->currentText(), "English");
  QWheelEvent scroll({5, 5}, {5, 5}, {}, {0, -120}, Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
  QApplication::sendEvent(chooser, &scroll);
  QKeyEvent up(QEvent::KeyPress, Qt::Key_Up, Qt::NoModifier);
  QApplication::sendEvent(chooser, &up);
  EXPECT_EQ(choices, std::vector{AppLanguage::russian});
  language = AppLanguage::german;
  textsChanged.send();
  EXPECT_EQ(chooser->currentText(), "Deutsch");
  EXPECT_EQ(choices.size(), 1U);
}

TEST_F(WindowsTest, WindowsThatAreUpFollowTheTexts) {
  const auto settings = windows.makeSettingsWindow();
  const auto onboarding = windows.makeOnboardingWindow();
  settings->show();
  onboarding->present([] {});
  ASSERT_EQ(windowsUp().size(), 2U);
  texts.settingsTitle = "Einstellungen";
  texts.onboardingTitle = "Willkommen";
  texts.onboardingHeadline = "Alles Wichtige";
  texts.onboardingDone = "Los";
  findings = {{false, "Kein Infobereich", "Fügen Sie einen hinzu"}};
  textsChanged.send();
  EXPECT_EQ(windowsUp().size(), 2U);
  for (QWidget* window : windowsUp()) {
    if (window->windowTitle() == "Einstellungen") {
      EXPECT_TRUE(shows(*window, "Kein Infobereich"));
      EXPECT_TRUE(shows(*window, "Fügen Sie einen hinzu"));
      continue;
    }
    EXPECT_EQ(window->windowTitle(), "Willkommen");
    EXPECT_TRUE(shows(*window, "Alles Wichtige"));
    EXPECT_FALSE(shows(*window, "Hello"));
    click(*window, "Los");
  }
  EXPECT_FALSE(onboarding->isUp());
  textsChanged.send();
}

TEST_F(WindowsTest, OnboardingCompletesOnceHoweverItEnds) {
  const std::vector<std::function<void(OnboardingWindow&)>> ways = {
      [](OnboardingWindow&) { click(*windowsUp().front(), "Done"); },
      [](OnboardingWindow&) { windowsUp().front()->close(); },
      [](OnboardingWindow& onboarding) { onboarding.closeAndFinish(); },
  };
  for (const auto& end : ways) {
    auto onboarding = windows.makeOnboardingWindow();
    int completions = 0;
    onboarding->present([&] { ++completions; });
    EXPECT_TRUE(onboarding->isUp());
    end(*onboarding);
    EXPECT_FALSE(onboarding->isUp());
    EXPECT_EQ(completions, 1);
    onboarding->closeAndFinish();
    EXPECT_EQ(completions, 1);
  }
  EXPECT_TRUE(windowsUp().empty());
}

TEST_F(WindowsTest, OnboardingMayBeDestroyedByItsCompletionOrWhileUp) {
  auto onboarding = windows.makeOnboardingWindow();
  onboarding->present([&] { onboarding.reset(); });
  windowsUp().front()->close();
  EXPECT_EQ(onboarding, nullptr);

  bool completed = false;
  onboarding = windows.makeOnboardingWindow();
  onboarding->present([&] { completed = true; });
  onboarding.reset();
  EXPECT_TRUE(windowsUp().empty());
  EXPECT_FALSE(completed);
}

TEST_F(WindowsTest, TheSnippetPreviewIsSmallHoweverLongTheSnippet) {
  const auto preview = windows.makeSnippetPreviewPopover();
  Size size;
  const SnippetPreviewPopover::Place place = [&size](Size wanted) {
    size = wanted;
    return Point{70, 40};
  };
  preview->show("x", place);
  const double heightOfOneLine = size.height;
  for (const auto& snippet : {std::string(1 << 20, 'x'), "x" + std::string(1000, '\n') + "x", std::string(50, 'i')}) {
    preview->show(snippet, place);
    ASSERT_EQ(windowsUp().size(), 1U);
    const QWidget* window = windowsUp().front();
    EXPECT_EQ(window->geometry(), QRect(70, 40, int(size.width), int(size.height)));
    EXPECT_LE(size.width, 360);
    EXPECT_LE(size.height, 12 * heightOfOneLine);
    EXPECT_NE(window->windowFlags() & Qt::WindowDoesNotAcceptFocus, 0);
  }
  EXPECT_EQ(size.height, heightOfOneLine) << "the last is short again";
  preview->hide();
  EXPECT_TRUE(windowsUp().empty());
  preview->show("  \n ", place);
  EXPECT_TRUE(windowsUp().empty());
}

TEST(QtPasteboardTest, HoldsTextAndPrivateBytesTogetherUntilCleared) {
  const std::string bytes("\0\xff{}", 4);
  QtPasteboard pasteboard;
  pasteboard.setString("old");
  pasteboard.clearContents();
  pasteboard.setData("application/x-rondora.menu-item-v1", bytes);
  pasteboard.setString("schön");
  EXPECT_EQ(pasteboard.data("application/x-rondora.menu-item-v1"), bytes);
  EXPECT_EQ(pasteboard.data("text/plain"), "schön");
  pasteboard.clearContents();
  EXPECT_EQ(pasteboard.data("application/x-rondora.menu-item-v1"), std::nullopt);
}

}  // namespace
}  // namespace rondora
