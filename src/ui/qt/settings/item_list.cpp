#include "ui/qt/settings/item_list.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QScopedValueRollback>
#include <QVBoxLayout>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/two_line_delegate.h"

namespace rondora {
namespace {

constexpr int kItemId = Qt::UserRole;
constexpr int kVisibleRows = 4;

}  // namespace

ItemList::ItemList(const SettingsModels& models, const ItemIcons& icons)
    : models_(models),
      icons_(icons),
      heading_(settings_look::makeHeading()),
      rows_(new QListWidget),
      empty_(settings_look::makeNote()),
      add_(new IconButton(icons, "plus", [this] { models_.menu.addItem(); })),
      duplicate_(new IconButton(icons, "plus.square.on.square", [this] { withChosen(&MenuEditor::duplicateItem); })),
      copy_(new IconButton(icons, "doc.on.doc.fill", [this] { withChosen(&MenuEditor::copyItem); })),
      paste_(new IconButton(icons, "doc.on.clipboard.fill", [this] { models_.menu.pasteItem(); })),
      remove_(new IconButton(icons, "trash.fill", [this] { withChosen(&MenuEditor::removeItem); })),
      up_(new IconButton(icons, "chevron.up", [this] { moveChosen(-1); })),
      down_(new IconButton(icons, "chevron.down", [this] { moveChosen(1); })) {
  rows_->setItemDelegate(new TwoLineDelegate(rows_));
  rows_->setIconSize({settings_look::kListIcon, settings_look::kListIcon});
  rows_->setDragDropMode(QAbstractItemView::InternalMove);
  rows_->setContextMenuPolicy(Qt::CustomContextMenu);
  rows_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  rows_->setMinimumHeight(kVisibleRows * (settings_look::kListIcon + 14));
  rows_->installEventFilter(this);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kSmallGap);
  auto* top = new QHBoxLayout;
  top->setSpacing(0);
  top->addWidget(heading_, 1);
  for (IconButton* button : {add_, duplicate_, copy_, paste_, remove_, up_, down_}) top->addWidget(button);
  column->addLayout(top);
  column->addWidget(empty_);
  column->addWidget(rows_, 1);
  // The focus makes a row current without choosing it.
  connect(rows_, &QListWidget::itemSelectionChanged, this, [this] { rowChosen(); });
  connect(rows_, &QListWidget::customContextMenuRequested, this, [this](const QPoint& at) { showContextMenu(at); });
  connect(
      rows_->model(), &QAbstractItemModel::rowsMoved, this, [this] { rowsMoved(); }, Qt::QueuedConnection);
}

QString ItemList::text(StringKey key) const { return toQString(models_.localization.text(key)); }

void ItemList::refresh() {
  heading_->setText(text(StringKey::menuItems));
  rows_->setAccessibleName(text(StringKey::menuItems));
  empty_->setText(text(StringKey::menuNoItems));
  add_->setName(text(StringKey::itemAdd));
  duplicate_->setName(text(StringKey::settingsDuplicate));
  copy_->setName(text(StringKey::settingsCopy));
  paste_->setName(text(StringKey::settingsPaste));
  remove_->setName(text(StringKey::settingsDelete));
  up_->setName(text(StringKey::settingsMoveUp));
  down_->setName(text(StringKey::settingsMoveDown));
  refreshRows();
}

void ItemList::refreshRows() {
  const QScopedValueRollback guard(isRefreshing_, true);
  const auto items = models_.menu.items();
  while (rows_->count() > static_cast<int>(items.size())) delete rows_->takeItem(rows_->count() - 1);
  while (rows_->count() < static_cast<int>(items.size())) rows_->addItem(new QListWidgetItem);
  const PieMenuItem* chosen = models_.navigation.item();
  int current = -1;
  for (int i = 0; i < rows_->count(); ++i) {
    const MenuEditor::ItemRow& item = items[static_cast<std::size_t>(i)];
    QListWidgetItem& row = *rows_->item(i);
    const QString title = toQString(item.title);
    row.setText(title);
    row.setToolTip(title);
    row.setData(Qt::AccessibleTextRole, title);
    row.setData(TwoLineDelegate::kMark, toQString(item.label));
    row.setData(kItemId, toQString(item.item.id.string()));
    row.setIcon(icons_.ofRow(IconReference::of(item.item), settings_look::kListIcon, palette(), devicePixelRatioF()));
    if (chosen != nullptr && chosen->id == item.item.id) current = i;
  }
  rows_->setCurrentRow(current);
  if (current < 0) rows_->clearSelection();
  rows_->setVisible(!items.empty());
  empty_->setVisible(items.empty());
  for (IconButton* button : {duplicate_, copy_, remove_}) button->setEnabled(current >= 0);
  up_->setEnabled(current > 0);
  down_->setEnabled(current >= 0 && current + 1 < rows_->count());
}

void ItemList::rowChosen() {
  if (isRefreshing_) return;
  const QListWidgetItem* row = rows_->selectedItems().isEmpty() ? nullptr : rows_->currentItem();
  models_.navigation.choose(row == nullptr ? std::nullopt : Uuid::parse(row->data(kItemId).toString().toStdString()));
}

/// The rows have the order of a drag of the chosen one.
void ItemList::rowsMoved() {
  const PieMenuItem* chosen = models_.navigation.item();
  if (chosen == nullptr) return refreshRows();
  const QString id = toQString(chosen->id.string());
  for (int i = 0; i < rows_->count(); ++i) {
    if (rows_->item(i)->data(kItemId).toString() == id) {
      return models_.menu.moveItem(chosen->id, static_cast<std::size_t>(i));
    }
  }
}

void ItemList::moveChosen(int places) {
  const PieMenuItem* chosen = models_.navigation.item();
  const auto place = chosen == nullptr ? std::nullopt : models_.menu.place(chosen->id);
  const int to = place ? static_cast<int>(*place) + places : -1;
  if (to >= 0) models_.menu.moveItem(chosen->id, static_cast<std::size_t>(to));
}

void ItemList::withChosen(void (MenuEditor::*edit)(const Uuid&)) {
  const PieMenuItem* chosen = models_.navigation.item();
  if (chosen != nullptr) (models_.menu.*edit)(Uuid(chosen->id));
}

void ItemList::showContextMenu(const QPoint& at) {
  auto* popup = new QMenu(this);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  const bool isOnItem = rows_->itemAt(at) != nullptr;
  const auto add = [&](StringKey name, IconButton* button, bool isPossible) {
    QAction* action = popup->addAction(text(name), button, &QAbstractButton::click);
    action->setEnabled(isPossible);
  };
  add(StringKey::itemAdd, add_, true);
  add(StringKey::settingsDuplicate, duplicate_, isOnItem);
  add(StringKey::settingsCopy, copy_, isOnItem);
  add(StringKey::settingsPaste, paste_, models_.menu.canPaste());
  add(StringKey::settingsDelete, remove_, isOnItem);
  popup->popup(rows_->viewport()->mapToGlobal(at));
}

bool ItemList::eventFilter(QObject* watched, QEvent* event) {
  if (watched != rows_ || event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  if (key.matches(QKeySequence::Copy)) return copy_->click(), true;
  if (key.matches(QKeySequence::Paste)) return paste_->click(), true;
  if (key.key() == Qt::Key_Delete) return remove_->click(), true;
  if (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_Up) return moveChosen(-1), true;
  if (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_Down) return moveChosen(1), true;
  return QWidget::eventFilter(watched, event);
}

}  // namespace rondora
