#include <gtest/gtest.h>

#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QComboBox>
#include <QKeyEvent>
#include <QLabel>
#include <QPushButton>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QWidget>
#include <algorithm>
#include <memory>

#include "platform/qt/qt_pasteboard.h"
#include "settings/window_texts.h"
#include "ui/qt/windows/qt_windows.h"

namespace rondora {
namespace {

/// The program's visible windows.
QWidgetList windowsUp() {
  QWidgetList result = QApplication::topLevelWidgets();
  result.removeIf([](const QWidget* widget) { return !widget->isVisible(); });
  return result;
}

bool shows(const QWidget& window, const QString& text) {
  const auto labels = window.findChildren<QLabel*>();
  return std::any_of(labels.begin(), labels.end(), [&](const QLabel* label) {
    return !label->visibleRegion().isEmpty() && label->text().contains(text);
  });
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
  SessionFindings findings{{true, "Hotkeys: 2", ""}};
  Signal<const SessionFindings&> findingsChanged;
  std::vector<FindingButton> pressed;
  int quits = 0;
  HotkeyRows rows{{.menuId = "1",
                   .menu = "Main",
                   .hotkey = "F9",
                   .note = "",
                   .isAssigned = true,
                   .recordName = "Record Main",
                   .removeName = "Remove Main"}};
  Signal<const HotkeyRows&> rowsChanged;
  Signal<> clicked;
  std::string removed;
  bool opensAtLogin = false;
  std::string steps;
  Signal<> textsChanged;
  QtWindows windows{[this] { return contents(); }};

  WindowContents contents() {
    return {
        .texts = [this] { return texts; },
        .onTextsChanged = [this](auto observer) { return textsChanged.subscribe(std::move(observer)); },
        .documentPath = "/home/user/config.json",
        .openDocumentFolder = [this] { ++foldersOpened; },
        .language = [this] { return language; },
        .chooseLanguage = [this](AppLanguage choice) { choices.push_back(choice); },
        .undo = [this] { steps += "undo "; },
        .redo = [this] { steps += "redo "; },
        .quit = [this] { ++quits; },
        .hotkeys = {.watch =
                        [this](auto observer) {
                          observer(rows);
                          return rowsChanged.subscribe(std::move(observer));
                        },
                    .toggleRecording = [this](const std::string& menu) { setRecording(!rows[0].isRecording, menu); },
                    .cancelRecording = [this] { setRecording(false, "1"); },
                    .remove = [this](const std::string& menu) { removed = menu; },
                    .onClick = [this](auto observer) { return clicked.subscribe(std::move(observer)); }},
        .login = {.isOn = [this] { return opensAtLogin; }, .set = [](bool) -> std::string { return "No space left"; }},
        .watchFindings = [this](auto observer) { return watch(observer); },
        .watchFailures = [this](auto observer) { return watch(observer); },
        .press =
            [this](const FindingButton& button) {
              pressed.push_back(button);
              std::erase_if(findings, [&](const SessionFinding& finding) {
                return std::ranges::find(finding.buttons, button) != finding.buttons.end();
              });
            }};
  }
  void setRecording(bool isRecording, const std::string& menu) {
    EXPECT_EQ(menu, "1");
    rows[0].isRecording = isRecording;
    rowsChanged.send(rows);
  }
  Subscription watch(const FindingsObserver& observer) {
    observer(findings);
    return findingsChanged.subscribe(observer);
  }
};

TEST_F(WindowsTest, SettingsWindowIsReusedAndUpToDate) {
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  ASSERT_EQ(windowsUp().size(), 1U);
  QWidget* window = windowsUp().front();
  EXPECT_TRUE(shows(*window, "Hotkeys: 2"));
  findingsChanged.send({{false, "Taken: Main", "Choose another"}});
  EXPECT_TRUE(shows(*window, "Taken: Main") && shows(*window, "Choose another"));
  EXPECT_FALSE(shows(*window, "Hotkeys: 2"));
  const FindingButton dismiss{FindingCommand::dismiss, "Dismiss", "/old.json"};
  findings = {{false, "Unreadable", "Mend it", {{FindingCommand::openFile, "Open", "/old.json"}, dismiss}}};
  findingsChanged.send(findings);
  click(*window, "Dismiss");
  EXPECT_TRUE(QTest::qWaitFor([&] { return !shows(*window, "Unreadable"); }));
  EXPECT_EQ(pressed, std::vector{dismiss});
  click(*window, "Close");
  EXPECT_EQ(findingsChanged.size(), 0U) << "nothing is read for a hidden window";
  EXPECT_TRUE(windowsUp().empty());
  texts.settingsTitle = "الإعدادات";
  settings->show();
  EXPECT_EQ(windowsUp(), QWidgetList{window});
  EXPECT_EQ(window->windowTitle().toStdString(), texts.settingsTitle);
}

TEST_F(WindowsTest, RecordingEndsWithAClickElsewhereOrTheLossOfFocus) {
  texts.recordHotkey = "Record";
  texts.cancelRecording = "Cancel";
  texts.removeHotkey = "Remove";
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  QWidget* window = windowsUp().front();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  const auto endsWith = [&](auto end) {
    click(*window, "Record");
    EXPECT_TRUE(QTest::qWaitFor([&] { return rows[0].isRecording; }));
    end();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !rows[0].isRecording; }));
  };
  endsWith([&] { click(*window, "Cancel"); });
  endsWith([&] { clicked.send(); });
  endsWith([&] {
    QEvent deactivation(QEvent::WindowDeactivate);
    QApplication::sendEvent(window, &deactivation);
  });
  endsWith([&] { window->close(); });
  settings->show();
  rows[0].note = "F9 already opens";
  rowsChanged.send(rows);
  EXPECT_TRUE(shows(*window, "F9 already opens"));
  rows[0].note = "";
  rowsChanged.send(rows);
  EXPECT_TRUE(QTest::qWaitFor([&] { return !shows(*window, "F9 already opens"); }));
  EXPECT_TRUE(shows(*window, "F9")) << "the list is no taller than its rows, and no shorter";
  click(*window, "Remove");
  EXPECT_TRUE(QTest::qWaitFor([&] { return removed == "1"; }));
}

TEST_F(WindowsTest, StartAtLoginShowsTheSystemsStateAndFailures) {
  opensAtLogin = true;
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  QWidget* window = windowsUp().front();
  auto* check = window->findChild<QCheckBox*>();
  EXPECT_TRUE(check->isChecked());
  check->click();
  EXPECT_TRUE(check->isChecked()) << "nothing changed";
  EXPECT_TRUE(shows(*window, "No space left"));
}

TEST_F(WindowsTest, SettingsWorkByKeyboardAlone) {
  texts.documentHeading = "File:";
  texts.startAtLogin = "At login";
  texts.recordHotkey = "Record";
  texts.removeHotkey = "Remove";
  const auto settings = windows.makeSettingsWindow();
  for (const char* keys : {"Esc", "Ctrl+W", "Return"}) {
    settings->show();
    ASSERT_EQ(windowsUp().size(), 1U);
    ASSERT_TRUE(QTest::qWaitForWindowActive(windowsUp().front()));
    QTest::keySequence(windowsUp().front(), QKeySequence(keys));
    EXPECT_TRUE(windowsUp().empty()) << keys;
  }
  settings->show();
  QWidget& window = *windowsUp().front();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  std::vector<std::string> names;
  for (int tabs = 0; tabs < 10; ++tabs) {
    QTest::keyClick(window.focusWidget(), Qt::Key_Tab);
    const auto* button = qobject_cast<QAbstractButton*>(window.focusWidget());
    names.push_back((button != nullptr ? button->text() : window.focusWidget()->accessibleName()).toStdString());
  }
  EXPECT_EQ(names, (std::vector<std::string>{"File:", "Copy", "Open folder", "Language:", "At login", "Record",
                                             "Remove", "Works: Hotkeys: 2", "Quit", "Close"}));
  click(window, "Open folder");
  EXPECT_EQ(foldersOpened, 1);
  click(window, "Copy");
  EXPECT_EQ(QtPasteboard().data("text/plain"), "/home/user/config.json");
  for (const char* keys : {"Ctrl+Z", "Ctrl+Shift+Z", "Ctrl+Q"}) QTest::keySequence(&window, QKeySequence(keys));
  EXPECT_EQ(steps, "undo redo ");
  EXPECT_EQ(quits, 1);
}

TEST_F(WindowsTest, FocusStaysInTheListWhenItsFindingGoes) {
  const auto finding = [](const std::string& name) {
    return SessionFinding{
        false, name, "Mend it", {{FindingCommand::openFile, "Open", name}, {FindingCommand::dismiss, "Dismiss", name}}};
  };
  findings = {finding("a"), finding("b"), finding("c"), {true, "Tray", ""}};
  const auto settings = windows.makeSettingsWindow();
  settings->show();
  QWidget& window = *windowsUp().front();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&window));
  QList<QPushButton*> buttons = window.findChildren<QPushButton*>();
  buttons.removeIf([](const QPushButton* button) { return button->text() != "Dismiss"; });
  buttons.at(1)->setFocus();
  std::vector<std::string> focused;
  while (pressed.size() < 3) {
    const QWidget* before = window.focusWidget();
    QTest::keyClick(window.focusWidget(), Qt::Key_Space);
    ASSERT_TRUE(QTest::qWaitFor([&] { return window.focusWidget() != before; }));
    const auto* button = qobject_cast<QPushButton*>(window.focusWidget());
    focused.push_back(
        (button ? button->accessibleDescription() : window.focusWidget()->accessibleName()).toStdString());
  }
  EXPECT_EQ(focused, (std::vector<std::string>{"c", "a", "Works: Tray"}));
}

TEST_F(WindowsTest, OnlyTheUserChoosesTheLanguage) {
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
  QKeyEvent choose(QEvent::KeyPress, Qt::Key_Return, Qt::NoModifier);
  QApplication::sendEvent(chooser, &choose);
  EXPECT_EQ(windowsUp().size(), 1U) << "Return must not press the default button";
  language = AppLanguage::german;
  textsChanged.send();
  EXPECT_EQ(chooser->currentText(), "Deutsch");
  EXPECT_EQ(choices.size(), 1U);
}

TEST_F(WindowsTest, OnboardingFollowsTextsAndFindings) {
  const auto onboarding = windows.makeOnboardingWindow();
  onboarding->present([] {});
  QWidget* window = windowsUp().front();
  texts.onboardingHeadline = "Alles Wichtige";
  findings = {{false, "Kein Infobereich", "Fügen Sie einen hinzu"}};
  textsChanged.send();
  EXPECT_EQ(windowsUp(), QWidgetList{window});
  EXPECT_TRUE(shows(*window, "Alles Wichtige") && shows(*window, "Fügen Sie einen hinzu"));
  EXPECT_FALSE(shows(*window, "Hello") || shows(*window, "Hotkeys: 2"));
}

TEST_F(WindowsTest, OnboardingFitsASmallScreenInEveryLanguage) {
  constexpr QSize kRoom(1280, 720 - 90);  // less a panel and a title bar
  for (const AppLanguage each : kAppLanguages) {
    const LocalizationStore store(each);
    texts = windowTexts(store, "Ctrl + Alt + Space", "/home/user/.config/Rondora/config.json");
    findings = {{false, std::string(store.text(StringKey::settingsNoTray)),
                 std::string(store.text(StringKey::sessionNoTrayRemedy))}};
    const auto onboarding = windows.makeOnboardingWindow();
    onboarding->present([] {});
    onboarding->remindToHold();
    const QWidget& window = *windowsUp().front();
    EXPECT_EQ(window.size().boundedTo(kRoom), window.size()) << rawValue(each);
    for (const QScrollBar* bar : window.findChildren<QScrollBar*>()) EXPECT_FALSE(bar->isVisible()) << rawValue(each);
  }
}

TEST_F(WindowsTest, OnboardingReportsItsEndOnceAndMayBeDestroyed) {
  const std::vector<std::function<void(OnboardingWindow&)>> ways = {
      [](OnboardingWindow&) { click(*windowsUp().front(), "Done"); },
      [](OnboardingWindow&) { windowsUp().front()->close(); },
      [](OnboardingWindow& onboarding) { onboarding.close(); },
  };
  int completions = 0;
  for (const auto& end : ways) {
    completions = 0;
    auto onboarding = windows.makeOnboardingWindow();
    onboarding->present([&] { ++completions; });
    EXPECT_TRUE(onboarding->isUp());
    end(*onboarding);
    EXPECT_FALSE(onboarding->isUp());
    onboarding->close();
    EXPECT_EQ(completions, 1);

    onboarding = windows.makeOnboardingWindow();
    onboarding->present([&] { onboarding.reset(); });
    end(*onboarding);
    EXPECT_EQ(onboarding, nullptr);
  }
  windows.makeOnboardingWindow()->present([&] { ++completions; });
  EXPECT_TRUE(windowsUp().empty());
  EXPECT_EQ(completions, 1) << "destroyed while visible";
}

TEST_F(WindowsTest, SnippetPreviewStaysSmall) {
  const auto preview = windows.makeSnippetPreviewPopover();
  Size size;
  const SnippetPreviewPopover::Place place = [&size](Size wanted) {
    size = wanted;
    return Point{70, 40};
  };
  preview->show({.text = "x"}, place);
  const double heightOfOneLine = size.height;
  for (const auto& snippet : {std::string(1 << 13, 'x'), "x" + std::string(1000, '\n') + "x", std::string(50, 'i')}) {
    preview->show({.text = snippet}, place);
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
}

TEST(QtPasteboardTest, HoldsTextAndPrivateBytesUntilCleared) {
  const std::string bytes("\0\xff{}", 4);
  QtPasteboard pasteboard;
  pasteboard.setString("old");
  int changes = 0;
  const QMetaObject::Connection count =
      QObject::connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, [&changes] { ++changes; });
  pasteboard.clearContents();
  pasteboard.setString("new");
  QCoreApplication::processEvents();
  EXPECT_EQ(changes, 1) << "no other program sees an empty clipboard";
  QObject::disconnect(count);
  pasteboard.clearContents();
  pasteboard.setData("application/x-rondora.menu-item-v1", bytes);
  pasteboard.setString("schön");
  EXPECT_EQ(pasteboard.data("application/x-rondora.menu-item-v1"), bytes);
  EXPECT_EQ(pasteboard.data("text/plain"), "schön");
  pasteboard.clearContents();
  QCoreApplication::processEvents();
  EXPECT_EQ(QGuiApplication::clipboard()->text(), "");
  EXPECT_EQ(pasteboard.data("application/x-rondora.menu-item-v1"), std::nullopt);
}

}  // namespace
}  // namespace rondora
