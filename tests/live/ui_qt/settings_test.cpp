#include <gtest/gtest.h>

#include <QAccessible>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QStackedWidget>
#include <QTest>
#include <QToolButton>
#include <algorithm>
#include <memory>

#include "platform/application_icons.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/windows/qt_windows.h"
#include "unit/app/program.h"

namespace rondora {
namespace {

class NoIcons final : public ApplicationIcons {
 public:
  std::optional<ApplicationIconSource> iconSource(std::string_view) const override { return std::nullopt; }
  std::optional<ApplicationIconSource> windowIconSource(std::string_view) const override { return std::nullopt; }
};

/// The settings of a running program on the fake desktop, drawn by the toolkit.
class SettingsTest : public ProgramTest {
 protected:
  SettingsTest() {
    PieMenu main = menu("main", {});
    for (PieMenuItem& each : main.items) each.id = desktop.random.uuid();
    launchWith({main});
    open();
  }
  ~SettingsTest() override { useInterfaceLanguage(AppLanguage::english); }

  void open() {
    settings->show();
    QApplication::processEvents();
  }
  QWidget* window() const {
    for (QWidget* each : QApplication::topLevelWidgets()) {
      if (each->isVisible() && each->isWindow() && each->windowType() == Qt::Window) return each;
    }
    return nullptr;
  }
  void setLanguage(AppLanguage language) {
    program.windowContents().chooseLanguage(language);
    desktop.time.advance(1);
    useInterfaceLanguage(language);
    QApplication::processEvents();
  }
  /// A new size of one part lays out those around it on a later turn.
  static void settle() {
    for (int turn = 0; turn < 5; ++turn) QApplication::processEvents();
  }
  void forEachPage(auto check) {
    const SettingsModels models = program.windowContents().settings();
    const auto show = [&](const std::string& name) {
      QApplication::processEvents();
      SCOPED_TRACE(name);
      check();
    };
    for (const MenuList::Row& row : models.menus.rows()) {
      models.navigation.openMenu(row.id);
      show(row.name);
    }
    const auto items = models.menus.rows();
    models.navigation.openMenu(items.front().id);
    for (const auto& row : models.menu.items()) {
      models.navigation.choose(row.item.id);
      show("item " + row.title);
    }
    for (const SettingsPage page :
         {SettingsPage::general, SettingsPage::appearance, SettingsPage::session, SettingsPage::backup}) {
      models.navigation.open(page);
      show("page " + std::to_string(int(page)));
    }
  }
  PieMenu& document() { return const_cast<PieMenu&>(program.windowContents().settings().history.document().menus[0]); }

  NoIcons noIcons;
  QtWindows windows{[this] { return program.windowContents(); },
                    {[this]() -> const ApplicationIcons& { return noIcons; }, {}}};
  std::unique_ptr<SettingsWindow> settings = windows.makeSettingsWindow();
};

/// What keeps the text of a visible widget from being read whole; empty for nothing.
std::string cutOff(const QWidget& widget) {
  if (const auto* label = qobject_cast<const QLabel*>(&widget); label != nullptr && !label->text().isEmpty()) {
    const int height = label->wordWrap() ? label->heightForWidth(label->width()) : label->sizeHint().height();
    const bool isNarrow = !label->wordWrap() && label->sizeHint().width() > label->width();
    if (isNarrow || height > label->height()) return label->text().toStdString();
  }
  const auto* button = qobject_cast<const QAbstractButton*>(&widget);
  const auto* choice = qobject_cast<const QComboBox*>(&widget);
  if (button != nullptr && !button->text().isEmpty() && button->sizeHint().width() > button->width()) {
    return button->text().toStdString();
  }
  if (choice != nullptr && choice->minimumSizeHint().width() > choice->width()) {
    return choice->currentText().toStdString();
  }
  const bool isControl = button != nullptr || choice != nullptr || qobject_cast<const QLineEdit*>(&widget) != nullptr;
  for (const QWidget* outer = widget.parentWidget(); isControl && outer != nullptr; outer = outer->parentWidget()) {
    const int left = widget.mapTo(outer, QPoint()).x();
    const bool isInside = left >= 0 && left + widget.width() <= outer->width();
    if (!isInside) return widget.accessibleName().toStdString() + " sticks out";
  }
  return {};
}

TEST_F(SettingsTest, NoTextIsCutOffInAnyLanguageAtTheSmallestSize) {
  for (const AppLanguage language : kAppLanguages) {
    setLanguage(language);
    forEachPage([&] {
      // As on a screen with room for all of it.
      const auto* pages = window()->findChild<QStackedWidget*>();
      window()->resize(window()->minimumSizeHint());
      settle();
      const QSize screen = window()->screen()->availableSize();
      EXPECT_EQ(window()->size().boundedTo(screen), window()->size()) << "larger than the screen";
      for (int i = 0; i < 2; ++i) {
        settle();
        const QSize missing = pages->minimumSizeHint() - pages->parentWidget()->parentWidget()->size();
        window()->resize(window()->size() + missing.expandedTo({0, 0}));
      }
      settle();
      EXPECT_LE(window()->width(), 1180) << rawValue(language);
      for (const QWidget* widget : window()->findChildren<QWidget*>()) {
        if (!widget->isVisible()) continue;
        EXPECT_EQ(cutOff(*widget), "") << rawValue(language);
      }
    });
  }
}

TEST_F(SettingsTest, EveryControlIsNamedAndReachedByTheKeyboard) {
  forEachPage([&] {
    std::set<const QWidget*> reached;
    for (QWidget* at = window()->nextInFocusChain(); at != window(); at = at->nextInFocusChain()) {
      const bool isReached = at->isVisible() && at->isEnabled() && (at->focusPolicy() & Qt::TabFocus) != 0;
      if (isReached) reached.insert(at);
    }
    for (const QWidget* widget : window()->findChildren<QWidget*>()) {
      const bool isControl = qobject_cast<const QAbstractButton*>(widget) || qobject_cast<const QLineEdit*>(widget) ||
                             qobject_cast<const QComboBox*>(widget) || reached.contains(widget);
      const bool isInner = widget->objectName().startsWith("qt_");
      if (!isControl || isInner || !widget->isVisible() || !widget->isEnabled()) continue;
      const QString name = QAccessible::queryAccessibleInterface(const_cast<QWidget*>(widget))->text(QAccessible::Name);
      EXPECT_FALSE(name.isEmpty()) << widget->metaObject()->className();
    }
    EXPECT_GT(reached.size(), 4U);
  });
}

TEST_F(SettingsTest, ClosesByKeyAndLosesNothing) {
  for (const char* keys : {"Esc", "Ctrl+W"}) {
    open();
    ASSERT_TRUE(QTest::qWaitForWindowActive(window()));
    program.windowContents().settings().menu.setName(keys);
    QTest::keySequence(window(), QKeySequence(keys));
    EXPECT_TRUE(QTest::qWaitFor([&] { return window() == nullptr; })) << keys;
    EXPECT_EQ(program.config().current().menus[0].name, keys);
  }
  open();
  QLineEdit& search = *window()->findChild<QLineEdit*>();
  search.setFocus();
  QTest::keySequence(&search, QKeySequence("Ctrl+Z"));
  EXPECT_TRUE(QTest::qWaitFor([&] { return document().name == "main"; }));
}

TEST_F(SettingsTest, RecordingEndsWithTheLossOfFocusAndWithTheWindow) {
  const auto record = [&] {
    program.windowContents().hotkeys.toggleRecording(document().id.string());
    EXPECT_TRUE(desktop.keyboard.isTaken());
  };
  record();
  QEvent deactivation(QEvent::WindowDeactivate);
  QApplication::sendEvent(window(), &deactivation);
  EXPECT_FALSE(desktop.keyboard.isTaken());
  record();
  window()->close();
  EXPECT_FALSE(desktop.keyboard.isTaken());
}

}  // namespace
}  // namespace rondora
