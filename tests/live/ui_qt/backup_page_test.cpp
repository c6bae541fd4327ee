#include "ui/qt/settings/backup_page.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QTest>

#include "doubles/fake_devices.h"
#include "doubles/fake_dialogs.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_user_defaults.h"
#include "doubles/fake_workspace.h"
#include "doubles/virtual_time.h"

namespace rondora {
namespace {

/// Used by keyboard alone.
class BackupPageTest : public testing::Test {
 protected:
  BackupPageTest() {
    config.exportConfiguration(folder + "config.edited-2023-03-08T202640.json");
    rename("Edited");
    page.refresh();
    page.show();
    QApplication::setActiveWindow(&page);
  }
  void rename(const std::string& name) {
    history.edit([&](PieConfiguration& document) { document.menus[0].name = name; });
  }
  std::string menu() const { return history.document().menus[0].name; }
  static void press(int key) { QTest::keyClick(QApplication::focusWidget(), static_cast<Qt::Key>(key)); }
  /// Presses Tab until the control with this text or accessible name has the focus.
  static void tabTo(const QString& name) {
    for (int i = 0; i < 30; ++i) {
      const QWidget* widget = QApplication::focusWidget();
      const auto* button = qobject_cast<const QPushButton*>(widget);
      if ((button == nullptr ? widget->accessibleName() : button->text()) == name) return;
      press(Qt::Key_Tab);
    }
    FAIL() << "not reached: " << name.toStdString();
  }
  void use(const QString& button) {
    tabTo(button);
    press(Qt::Key_Space);
  }

  const std::string folder = "/home/user/.config/Rondora/";
  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  FakeUserDefaults defaults;
  FakeWorkspace workspace;
  LocalizationStore localization;
  KeptDocuments kept{defaults};
  ConfigManager config{{files, time, log, random, notifications}};
  EditSession session{config, time};
  EditHistory history{session, config, time};
  SettingsBackup backup{{config, history, kept, files, workspace, {localization, kPcModifierNames}}};
  ItemIcons icons{{}, {}};
  FakeFileChooser chooser;
  BackupPage page{backup, localization, icons, chooser};
};

TEST_F(BackupPageTest, ImportsOnlyWhatIsApplied) {
  const std::string copy = folder + "config.edited-2023-03-08T202640.json";
  use("Export Settings…");
  EXPECT_TRUE(chooser.asked.suggestedName.ends_with(".json"));
  chooser.answer("/missing/out.json");
  EXPECT_TRUE(QApplication::focusWidget()->accessibleDescription().contains("could not be exported"));
  use("Choose File…");
  chooser.answer(std::nullopt);
  EXPECT_FALSE(backup.preview());
  press(Qt::Key_Space);
  chooser.answer(copy);
  EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "“config.edited-2023-03-08T202640.json” would change this:");
  press(Qt::Key_Escape);
  EXPECT_FALSE(backup.preview());
  EXPECT_EQ(menu(), "Edited");
  use("Choose File…");
  chooser.answer(copy);
  use("Apply");
  EXPECT_EQ(menu(), "Main");
  EXPECT_EQ(QApplication::focusWidget()->accessibleDescription(), "Applied. Undo takes it back.");
}

TEST_F(BackupPageTest, RestoresAndDeletesTheChosenCopy) {
  tabTo("Kept copies");
  press(Qt::Key_Return);
  ASSERT_TRUE(backup.preview());
  use("Apply");
  EXPECT_EQ(menu(), "Main");
  EXPECT_EQ(QApplication::focusWidget()->accessibleName(), "Kept copies");
  press(Qt::Key_Delete);
  press(Qt::Key_Escape);
  EXPECT_EQ(backup.copies().size(), 1U);
  press(Qt::Key_Delete);
  press(Qt::Key_Space);
  EXPECT_EQ(backup.copies().size(), 1U) << "the answer that has the focus keeps it";
  press(Qt::Key_Delete);
  QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
  press(Qt::Key_Space);
  EXPECT_TRUE(backup.copies().empty());
  EXPECT_TRUE(QApplication::focusWidget()->isVisible());
}

}  // namespace
}  // namespace rondora
