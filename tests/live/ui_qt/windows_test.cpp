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

#include "localization/localization_store.h"
#include "platform/qt/qt_pasteboard.h"
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
  SessionFindings findings{{true, "Hotkeys: 2", ""}};
  Signal<const SessionFindings&> findingsChanged;
  LocalizationStore store{AppLanguage::english};
  Welcome::Facts facts{"Ctrl + Alt + Space", true};
  std::string steps;
  Welcome welcome{{store, "/home/user/.config/Rondora/config.json", [this] { return facts; },
                   [this] { steps += "ring "; }, [this] { steps += "hotkey "; }}};
  QtWindows windows{[this] { return contents(); }, {}};

  WindowContents contents() {
    return {.onTextsChanged = {},
            .settings = {},
            .onIconsDecoded = {},
            .language = [] { return AppLanguage::english; },
            .chooseLanguage = [](AppLanguage) {},
            .quit = {},
            .hotkeys = {},
            .watchFindings = [this](auto observer) { return watch(observer); },
            .watchFailures = [this](auto observer) { return watch(observer); },
            .watchUnsaved = {},
            .press = {},
            .released = {},
            .welcome = &welcome};
  }
  Subscription watch(const FindingsObserver& observer) {
    observer(findings);
    return findingsChanged.subscribe(observer);
  }
};

TEST_F(WindowsTest, OnboardingFollowsTextsAndFindings) {
  const auto onboarding = windows.makeOnboardingWindow();
  onboarding->present([] {});
  QWidget* window = windowsUp().front();
  store.setLanguage(AppLanguage::german);
  findings = {{false, "Kein Infobereich", "Fügen Sie einen hinzu"}};
  welcome.refresh();
  EXPECT_TRUE(QTest::qWaitFor([&] { return shows(*window, "Alles Wichtige"); }));
  EXPECT_EQ(windowsUp(), QWidgetList{window});
  EXPECT_TRUE(shows(*window, "Fügen Sie einen hinzu"));
  EXPECT_FALSE(shows(*window, "Everything") || shows(*window, "Hotkeys: 2"));
}

TEST_F(WindowsTest, OnboardingMarksStepsAndEndsWithItsDefaultButton) {
  facts = {};
  const auto onboarding = windows.makeOnboardingWindow();
  int completions = 0;
  onboarding->present([&] { ++completions; });
  QWidget* window = windowsUp().front();
  ASSERT_TRUE(QTest::qWaitForWindowActive(window));
  const auto marks = [&] {
    std::string all;
    for (const QLabel* label : window->findChildren<QLabel*>()) all += label->accessibleName().left(4).toStdString();
    return all.substr(0, 8);
  };
  EXPECT_EQ(marks(), "To dTo d");
  QTest::keyClick(window->focusWidget(), Qt::Key_Space);
  QTest::keyClick(window->focusWidget(), Qt::Key_Tab);
  QTest::keyClick(window->focusWidget(), Qt::Key_Space);
  EXPECT_EQ(steps, "ring hotkey ");
  auto* chooser = window->findChild<QComboBox*>();
  chooser->setFocus();
  welcome.ringOpened();
  EXPECT_TRUE(QTest::qWaitFor([&] { return marks() == "DoneTo d"; }));
  EXPECT_EQ(window->focusWidget(), chooser);
  welcome.itemChosen();
  EXPECT_TRUE(QTest::qWaitFor([&] { return marks() == "DoneDone"; }));
  EXPECT_TRUE(shows(*window, "Well done!"));
  QTest::keyClick(window->focusWidget(), Qt::Key_Return);
  EXPECT_EQ(completions, 1);
}

TEST_F(WindowsTest, OnboardingFitsASmallScreenInEveryLanguage) {
  constexpr QSize kRoom(1280, 720 - 90);  // less a panel and a title bar
  facts.isHotkeyReliable = false;
  for (std::size_t i = 0; i < 2 * kAppLanguageCount; ++i) {
    const AppLanguage each = kAppLanguages[i % kAppLanguageCount];
    store.setLanguage(each);
    if (i == kAppLanguageCount) welcome.ringOpened(), welcome.itemChosen();
    findings = {{false, std::string(store.text(StringKey::settingsNoTray)),
                 std::string(store.text(StringKey::sessionNoTrayRemedy))}};
    const auto onboarding = windows.makeOnboardingWindow();
    onboarding->present([] {});
    onboarding->remindToHold();
    const QWidget& window = *windowsUp().front();
    const auto bars = window.findChildren<QScrollBar*>();
    EXPECT_TRUE(QTest::qWaitFor([&] {
      return std::ranges::none_of(bars, [](const QScrollBar* bar) { return bar->isVisible(); });
    })) << rawValue(each);
    EXPECT_EQ(window.size().boundedTo(kRoom), window.size()) << rawValue(each);
  }
}

TEST_F(WindowsTest, OnboardingReportsItsEndOnceAndMayBeDestroyed) {
  const std::vector<std::function<void(OnboardingWindow&)>> ways = {
      [](OnboardingWindow&) { click(*windowsUp().front(), "Close"); },
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
