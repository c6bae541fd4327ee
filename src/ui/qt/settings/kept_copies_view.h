#pragma once

#include <QLabel>
#include <QPushButton>
#include <QStringList>
#include <functional>
#include <string>

#include "settings/backup/settings_backup.h"
#include "ui/qt/settings/fitted_list.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// The list of kept documents and what can be done with the chosen one. Asks in place before it deletes.
class KeptCopiesView : public QWidget {
 public:
  /// `changed` is called after each command. The references must outlive the object.
  KeptCopiesView(SettingsBackup& backup, const LocalizationStore& localization, const ItemIcons& icons,
                 std::function<void()> changed);

  void refresh();
  /// On the list, if there is one.
  void takeFocus();
  /// In the Tab order.
  QWidget& last() const { return *keep_; }

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void layOut();
  void refreshRows();
  void addRow(const SettingsBackup::Copy& copy, const QString& title);
  void refreshQuestion();
  std::string chosen() const;
  void restore();
  void ask();
  void answer(bool deletes);
  QString text(StringKey key) const;
  QString title(const SettingsBackup::Copy& copy) const;

  SettingsBackup& backup_;
  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  std::function<void()> changed_;
  /// The titles of the rows.
  QStringList shown_;
  QLabel* none_;
  FittedList* copies_;
  QPushButton* restore_;
  QPushButton* openFolder_;
  QPushButton* delete_;
  QWidget* question_;
  QLabel* questionText_;
  QPushButton* confirm_;
  QPushButton* keep_;
};

}  // namespace rondora
