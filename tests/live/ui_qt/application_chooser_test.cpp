#include "ui/qt/settings/application_chooser.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "doubles/fake_dialogs.h"
#include "doubles/fake_workspace.h"

namespace rondora {
namespace {

TEST(ApplicationChooserTest, IsUsedByKeyboardAlone) {
  FakeWorkspace workspace;
  for (const char* name : {"Mail", "Maps", "Editor"}) workspace.install(name, name);
  const FakeTextOrder order;
  const LocalizationStore localization;
  const ItemIcons icons({}, {});
  std::vector<std::string> chosen;
  QWidget window;
  window.show();
  const auto open = [&] {
    ApplicationChooser::open(
        std::make_unique<ApplicationList>(ApplicationList::Services{workspace, workspace, order, localization, {}},
                                          ApplicationList::Offer{}),
        localization, icons, [&](const std::string& id) { chosen.push_back(id); }, window);
    QApplication::setActiveWindow(QApplication::activeModalWidget());
  };
  const auto press = [](auto keys) { QTest::keyClicks(QApplication::focusWidget(), keys); };
  const auto pressKey = [](Qt::Key key) { QTest::keyClick(QApplication::focusWidget(), key); };

  open();
  press("unknown");
  pressKey(Qt::Key_Return);
  EXPECT_TRUE(chosen.empty()) << "an identifier is chosen on purpose only";
  for (int i = 0; i < 7; ++i) pressKey(Qt::Key_Backspace);
  pressKey(Qt::Key_Down);
  press("ma");  // from the list to the search
  pressKey(Qt::Key_Down);
  pressKey(Qt::Key_Return);
  EXPECT_EQ(chosen, std::vector<std::string>{"Maps"});
  open();
  pressKey(Qt::Key_Down);
  pressKey(Qt::Key_Escape);
  EXPECT_EQ(QApplication::activeModalWidget(), nullptr);
  EXPECT_EQ(chosen.size(), 1U);
}

}  // namespace
}  // namespace rondora
