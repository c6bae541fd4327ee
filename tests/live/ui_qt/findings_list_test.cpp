#include "ui/qt/settings/findings_list.h"

#include <gtest/gtest.h>

#include <QApplication>
#include <QPushButton>
#include <QTest>
#include <QVBoxLayout>

namespace rondora {
namespace {

TEST(FindingsList, KeepsFocusAndItsPlaceInTheTabOrderWhenFindingsChange) {
  const FindingButton allow{FindingCommand::requestAccessibility, "Allow", ""};
  Signal<const SessionFindings&> changed;
  QWidget page;
  QVBoxLayout column(&page);
  QPushButton before("before");
  FindingsList list([&](const FindingsObserver& observer) { return changed.subscribe(observer); }, {});
  QPushButton after("after");
  for (QWidget* widget : {static_cast<QWidget*>(&before), static_cast<QWidget*>(&list), static_cast<QWidget*>(&after)})
    column.addWidget(widget);
  page.show();
  ASSERT_TRUE(QTest::qWaitForWindowActive(&page));
  const auto next = [] {
    QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
    const auto* button = qobject_cast<QPushButton*>(QApplication::focusWidget());
    return (button != nullptr ? button->text() : QApplication::focusWidget()->accessibleName()).toStdString();
  };
  changed.send({{true, "first", ""}, {false, "second", "Mend it", {allow}}});
  before.setFocus();
  for (const char* name : {": first", ": second", "Allow"}) EXPECT_EQ(next(), name);
  changed.send({{true, "first", ""}, {true, "second", ""}, {true, "third", ""}});
  for (const char* name : {": third", "after", "before", ": first"}) EXPECT_EQ(next(), name);
}

}  // namespace
}  // namespace rondora
