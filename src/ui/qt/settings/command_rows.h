#pragma once

#include <QAbstractListModel>
#include <QColor>
#include <QString>
#include <vector>

#include "settings/commands/app_command_sets.h"
#include "ui/qt/settings/item_icons.h"

namespace rondora {

/// The menu commands of an application that a search found, for TwoLineDelegate.
class CommandRows : public QAbstractListModel {
 public:
  /// The references must outlive the object.
  CommandRows(const AppCommandSets& sets, const LocalizationStore& localization, const ItemIcons& icons, QWidget& view);

  void search(const QString& query);
  /// Index in the catalog of the command in this row.
  std::size_t command(int row) const { return rows_.at(static_cast<std::size_t>(row)).command; }
  bool isInSet(int row) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  QString secondLine(int row) const;

  const AppCommandSets& sets_;
  const LocalizationStore& localization_;
  const ItemIcons& icons_;
  /// Whose colours and scale the icons have.
  QWidget& view_;
  std::vector<CommandCatalog::Row> rows_;
};

}  // namespace rondora
