#include "ui/qt/settings/command_rows.h"

#include <QGuiApplication>
#include <QIcon>
#include <QWidget>
#include <utility>

#include "base/unicode.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/two_line_delegate.h"

namespace rondora {
namespace {

/// A text of an application's keeps its own direction, also where the interface runs the other way.
QString inOwnDirection(const std::string& text) {
  const bool isForeign = QGuiApplication::isRightToLeft() && !text.empty();
  return toQString(isForeign ? isolated(text) : text);
}

}  // namespace

CommandRows::CommandRows(const AppCommandSets& sets, const LocalizationStore& localization, const ItemIcons& icons,
                         QWidget& view)
    : QAbstractListModel(&view), sets_(sets), localization_(localization), icons_(icons), view_(view) {}

void CommandRows::search(const QString& query) {
  auto rows = sets_.catalog().rows(query.toStdString());
  // Marks may have changed; the view keeps its place.
  if (rows == rows_ && !rows.empty()) return Q_EMIT dataChanged(index(0), index(rowCount() - 1));
  beginResetModel();
  rows_ = std::move(rows);
  endResetModel();
}

bool CommandRows::isInSet(int row) const {
  return sets_.hasMenuCommand(sets_.catalog().commands().at(command(row)).path);
}

int CommandRows::rowCount(const QModelIndex& parent) const {
  return parent.isValid() ? 0 : static_cast<int>(rows_.size());
}

/// The menus, and what else there is to know.
QString CommandRows::secondLine(int row) const {
  const CommandCatalog::Row& command = rows_[static_cast<std::size_t>(row)];
  QString line = inOwnDirection(command.menus);
  if (!command.note.empty()) line += QStringLiteral(" · ") + toQString(command.note);
  if (isInSet(row)) line += QStringLiteral(" · ") + toQString(localization_.text(StringKey::catalogAdded));
  return line;
}

QVariant CommandRows::data(const QModelIndex& index, int role) const {
  if (!index.isValid()) return {};
  const CommandCatalog::Row& command = rows_[static_cast<std::size_t>(index.row())];
  const QString title = toQString(command.title);
  const QString key = toQString(command.keyEquivalent);
  switch (role) {
    case Qt::DisplayRole:
    case Qt::ToolTipRole:
      return title;
    case Qt::DecorationRole:
      return icons_.ofRow(IconReference::parse(command.icon), settings_look::kListIcon, view_.palette(),
                          view_.devicePixelRatioF());
    case Qt::AccessibleTextRole: {
      const QString text = title + QStringLiteral(", ") + secondLine(index.row());
      return key.isEmpty() ? text : text + QStringLiteral(", ") + key;
    }
    case TwoLineDelegate::kSecondLine:
      return secondLine(index.row());
    case TwoLineDelegate::kMark:
      return key;
    case TwoLineDelegate::kIsQuiet:
      return isInSet(index.row()) || !command.note.empty();
    default:
      return {};
  }
}

}  // namespace rondora
