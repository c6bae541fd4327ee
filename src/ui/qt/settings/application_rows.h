#pragma once

#include <QAbstractListModel>
#include <QString>
#include <QStyledItemDelegate>
#include <vector>

#include "ui/qt/settings/item_icons.h"

namespace rondora {

struct ApplicationRow {
  QString identifier;
  QString name;
  /// Shown below the name; may be empty.
  QString detail;
  /// Shown at the end of the row; may be empty.
  QString mark;
};

/// A list of applications.
class ApplicationRows : public QAbstractListModel {
 public:
  static constexpr int kDetailRole = Qt::UserRole;
  static constexpr int kMarkRole = Qt::UserRole + 1;
  static constexpr int kIdentifierRole = Qt::UserRole + 2;

  using QAbstractListModel::QAbstractListModel;

  void show(std::vector<ApplicationRow> rows);
  /// An invalid one when no row has the identifier.
  QModelIndex find(const QString& identifier) const;

  int rowCount(const QModelIndex& parent = {}) const override;
  QVariant data(const QModelIndex& index, int role) const override;

 private:
  std::vector<ApplicationRow> rows_;
};

/// Draws the rows with the icons of their applications, which are fetched for visible rows only.
class ApplicationRowPainter : public QStyledItemDelegate {
 public:
  /// `icons` must outlive the object. `hasEqualRows`: a row without a detail is as high as the others.
  ApplicationRowPainter(const ItemIcons& icons, int iconSide, bool hasEqualRows, QObject* parent)
      : QStyledItemDelegate(parent), icons_(icons), iconSide_(iconSide), hasEqualRows_(hasEqualRows) {}

  void paint(QPainter* painter, const QStyleOptionViewItem& option, const QModelIndex& index) const override;
  QSize sizeHint(const QStyleOptionViewItem& option, const QModelIndex& index) const override;

 private:
  const ItemIcons& icons_;
  int iconSide_;
  bool hasEqualRows_;
};

}  // namespace rondora
