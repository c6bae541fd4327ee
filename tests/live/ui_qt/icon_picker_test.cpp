#include "ui/qt/settings/icon_picker.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QKeyEvent>
#include <QPointer>

#include "ui/qt/settings/embedded_icon_names.h"

namespace rondora {
namespace {

/// The picker in a window without a screen.
class IconPickerTest : public testing::TestWithParam<AppLanguage> {
 protected:
  void SetUp() override {
    QApplication::setLayoutDirection(isRightToLeft(GetParam()) ? Qt::RightToLeft : Qt::LeftToRight);
    texts_.setLanguage(GetParam());
    const auto files = [](QWidget&, const IconPicker::Answer& answer) { answer("/picture.png"); };
    picker_ = new IconPicker(
        std::make_unique<IconChoice>(texts_, embeddedIconNames, recent_, PieMenuItem()), icons_, {{}, files},
        [this](const std::string& icon) { chosen_ += icon + "\n"; }, &parent_);
    picker_->show();
    picker_->activateWindow();
    QApplication::processEvents();
  }
  void TearDown() override { QApplication::setLayoutDirection(Qt::LeftToRight); }
  void press(int key, const QString& text = {}) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
      QKeyEvent event(type, key, Qt::NoModifier, text);
      if (QWidget* focus = picker_ ? picker_->focusWidget() : nullptr) QCoreApplication::sendEvent(focus, &event);
    }
    QCoreApplication::sendPostedEvents(nullptr, QEvent::DeferredDelete);
  }

  LocalizationStore texts_;
  RecentIcons recent_;
  ItemIcons icons_{{}, {}};
  QWidget parent_;
  QPointer<IconPicker> picker_;
  std::string chosen_;
};

TEST_P(IconPickerTest, IsDrivenByTheKeyboard) {
  press(0, "nor");
  press(Qt::Key_Down);
  auto* grid = picker_->findChild<QListView*>();
  EXPECT_EQ(picker_->focusWidget(), grid);
  press(Qt::Key_W, "w");
  EXPECT_EQ(picker_->findChild<QLineEdit*>()->text(), "norw") << "typing in the grid continues the search";
  EXPECT_EQ(grid->currentIndex().data(Qt::AccessibleTextRole), grid->currentIndex().data(Qt::ToolTipRole));
  EXPECT_FALSE(grid->currentIndex().data(Qt::AccessibleTextRole).toString().isEmpty());
  press(Qt::Key_Return);
  EXPECT_EQ(chosen_, "🇳🇴\n");
  EXPECT_EQ(recent_.icons(), std::vector<std::string>{"🇳🇴"});
  EXPECT_TRUE(picker_.isNull());
}

TEST_P(IconPickerTest, ArrowsFollowTheDirectionOfWriting) {
  press(Qt::Key_Down);
  press(isRightToLeft(GetParam()) ? Qt::Key_Left : Qt::Key_Right);
  press(Qt::Key_Return);
  EXPECT_EQ(chosen_, "heart.fill\n");
}

TEST_P(IconPickerTest, EscapeChoosesNothing) {
  press(Qt::Key_Down);
  press(Qt::Key_Escape);
  EXPECT_EQ(chosen_, "");
  EXPECT_TRUE(picker_.isNull());
}

TEST_P(IconPickerTest, TakesTheFileThatAQuestionAnswers) {
  const auto title = QString::fromStdString(std::string(texts_.text(StringKey::iconPickerImageFile)));
  for (QToolButton* button : picker_->findChildren<QToolButton*>()) {
    if (button->text() == title) button->click();
  }
  EXPECT_EQ(chosen_, "/picture.png\n");
}

INSTANTIATE_TEST_SUITE_P(Languages, IconPickerTest, testing::Values(AppLanguage::english, AppLanguage::arabic));

}  // namespace
}  // namespace rondora
