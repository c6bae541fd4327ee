#include <gtest/gtest.h>

#include <QApplication>
#include <QFileDialog>
#include <QLineEdit>
#include <QTest>

#include "desktop/temporary_folder.h"
#include "ui/qt/windows/qt_file_chooser.h"

namespace rondora {
namespace {

QFileDialog* dialog() { return qobject_cast<QFileDialog*>(QApplication::activeModalWidget()); }

TEST(FileChooserTest, SavesUnderTheTypedNameAndTellsOfCancelling) {
  QtFileChooser chooser;
  const TemporaryFolder folder;
  std::vector<std::optional<std::string>> answers;
  const auto noteAnswer = [&answers](auto path) { answers.push_back(std::move(path)); };
  const FileChoice backup{.purpose = FileChoice::Purpose::save,
                          .title = "Export",
                          .kinds = {{"Back-ups (JSON)", {"*.json"}}},
                          .suggestedName = "menus.json",
                          .extension = "json",
                          .folder = folder.path().string()};
  EXPECT_TRUE(chooser.choose(backup, noteAnswer));
  ASSERT_NE(dialog(), nullptr);
  EXPECT_EQ(dialog()->windowTitle(), "Export");
  EXPECT_EQ(dialog()->nameFilters(), QStringList("Back-ups JSON (*.json)"));
  EXPECT_FALSE(chooser.choose({}, noteAnswer)) << "one at a time";
  auto* name = dialog()->findChild<QLineEdit*>("fileNameEdit");
  EXPECT_EQ(name->text(), "menus.json");
  name->setText("mine");
  QTest::keyClick(name, Qt::Key_Return);
  EXPECT_EQ(answers, (std::vector<std::optional<std::string>>{(folder.path() / "mine.json").string()}));

  EXPECT_TRUE(chooser.choose({}, noteAnswer));
  EXPECT_EQ(dialog()->directory().path().toStdString(), folder.path().string()) << "the folder of the last choice";
  QTest::keyClick(dialog(), Qt::Key_Escape);
  EXPECT_EQ(answers.back(), std::nullopt);

  auto window = std::make_unique<QWidget>();
  window->show();
  QApplication::setActiveWindow(window.get());
  EXPECT_TRUE(chooser.choose({}, noteAnswer));
  window.reset();
  EXPECT_EQ(answers.size(), 3U) << "closed with its window";
}

}  // namespace
}  // namespace rondora
