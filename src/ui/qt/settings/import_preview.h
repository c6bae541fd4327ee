#pragma once

#include <QFrame>
#include <QLabel>
#include <QPushButton>

#include "settings/backup/settings_backup.h"
#include "ui/qt/settings/fitted_list.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// What an import would change, with the buttons that apply or cancel it. Escape cancels.
class ImportPreview : public QFrame {
 public:
  /// The references must outlive the object.
  ImportPreview(const LocalizationStore& localization, const ItemIcons& icons);

  QPushButton& apply() { return *apply_; }
  QPushButton& cancel() { return *cancel_; }
  void show(const SettingsBackup::Preview& preview);
  void takeFocus();
  /// Takes its place in the Tab order behind that widget.
  void follow(QWidget& predecessor);

 protected:
  void keyPressEvent(QKeyEvent* event) override;
  void changeEvent(QEvent* event) override;

 private:
  void fill();
  void addRow(const DocumentChange& change, bool isPart);
  QIcon icon(DocumentChange::Kind kind, bool isPart) const;

  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  DocumentChanges shown_;
  QLabel* title_;
  FittedList* changes_;
  QPushButton* apply_;
  QPushButton* cancel_;
};

}  // namespace rondora
