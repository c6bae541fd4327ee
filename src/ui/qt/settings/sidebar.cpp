#include "ui/qt/settings/sidebar.h"

#include <QHBoxLayout>
#include <QKeyEvent>
#include <QMenu>
#include <QPainter>
#include <QScopedValueRollback>
#include <QVBoxLayout>
#include <array>

#include "platform/qt/qt_text.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/two_line_delegate.h"

namespace rondora {
namespace {

constexpr int kMargin = 10;
constexpr int kWidth = 232;
constexpr int kMenuIcon = 22;
constexpr int kPageIcon = 18;
enum Role { kMenuId = Qt::UserRole, kItemId };

struct PageEntry {
  SettingsPage page;
  StringKey name;
  const char* symbol;
};
constexpr std::array<PageEntry, 4> kPages = {{
    {SettingsPage::general, StringKey::pageGeneral, "gearshape.fill"},
    {SettingsPage::appearance, StringKey::pageAppearance, "paintbrush.fill"},
    {SettingsPage::session, StringKey::pageSession, "checkmark.circle.fill"},
    {SettingsPage::backup, StringKey::pageBackup, "square.and.arrow.down.fill"},
}};

QListWidget* makeList(int iconSide) {
  auto* list = new QListWidget;
  list->setItemDelegate(new TwoLineDelegate(list));
  list->setIconSize({iconSide, iconSide});
  list->setFrameShape(QFrame::NoFrame);
  list->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  list->viewport()->setAutoFillBackground(false);
  return list;
}

std::optional<Uuid> idOf(const QListWidgetItem* row, int role) {
  return row == nullptr ? std::nullopt : Uuid::parse(row->data(role).toString().toStdString());
}

/// As tall as its rows.
void fitRows(QListWidget& list) {
  int height = 2 * list.frameWidth();
  for (int i = 0; i < list.count(); ++i) height += list.sizeHintForRow(i);
  list.setFixedHeight(height);
}

/// A ring, as the menu is one, with an edge.
QPixmap menuRing(const QColor& color, const QColor& edge, double ratio) {
  constexpr double kStroke = kMenuIcon * 0.24;
  constexpr double kEdge = 1.5;
  constexpr double kInset = kStroke / 2 + 2;
  QPixmap pixmap(QSize(kMenuIcon, kMenuIcon) * ratio);
  pixmap.setDevicePixelRatio(ratio);
  pixmap.fill(Qt::transparent);
  QPainter painter(&pixmap);
  painter.setRenderHint(QPainter::Antialiasing);
  for (const auto& [pen, width] : {std::pair(edge, kStroke + 2 * kEdge), std::pair(color, kStroke)}) {
    painter.setPen(QPen(pen, width));
    painter.drawEllipse(QRectF(0, 0, kMenuIcon, kMenuIcon).adjusted(kInset, kInset, -kInset, -kInset));
  }
  return pixmap;
}

}  // namespace

Sidebar::Sidebar(const SettingsModels& models, const ItemIcons& icons)
    : models_(models),
      icons_(icons),
      search_(new QLineEdit),
      heading_(settings_look::makeHeading()),
      menus_(makeList(kMenuIcon)),
      hits_(makeList(kMenuIcon)),
      nothing_(settings_look::makeNote()),
      pages_(makeList(kPageIcon)),
      add_(new IconButton(icons, "plus", [this] { models_.menus.add(); })),
      duplicate_(new IconButton(icons, "doc.on.doc.fill",
                                [this] {
                                  if (const auto menu = chosenMenu()) models_.menus.duplicate(*menu);
                                })),
      remove_(new IconButton(icons, "trash.fill",
                             [this] {
                               if (const auto menu = chosenMenu()) models_.menus.remove(*menu);
                             })),
      up_(new IconButton(icons, "chevron.up", [this] { moveChosen(-1); })),
      down_(new IconButton(icons, "chevron.down", [this] { moveChosen(1); })),
      undo_(new IconButton(icons, "arrow.uturn.backward", [this] { models_.history.undo(); })),
      redo_(new IconButton(icons, "arrow.uturn.forward", [this] { models_.history.redo(); })) {
  setMinimumWidth(kWidth);
  setMaximumWidth(kWidth * 3 / 2);
  search_->setClearButtonEnabled(true);
  menus_->setDragDropMode(QAbstractItemView::InternalMove);
  menus_->setContextMenuPolicy(Qt::CustomContextMenu);
  hits_->hide();
  nothing_->hide();
  for (IconButton* button : {undo_, redo_}) button->setFocusPolicy(Qt::TabFocus);
  for (QListWidget* list : {menus_, hits_, pages_}) list->installEventFilter(this);
  search_->installEventFilter(this);

  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(search_);
  column->addSpacing(settings_look::kSmallGap);
  column->addWidget(heading_);
  column->addWidget(menus_, 1);
  column->addWidget(hits_, 1);
  column->addWidget(nothing_);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(0);
  for (IconButton* button : {add_, duplicate_, remove_, up_, down_}) buttons->addWidget(button);
  buttons->addStretch();
  for (IconButton* button : {undo_, redo_}) buttons->addWidget(button);
  column->addLayout(buttons);
  column->addWidget(settings_look::makeRule());
  column->addWidget(pages_);

  connect(search_, &QLineEdit::textChanged, this, [this] { refreshHits(); });
  // The focus makes a row current without choosing it.
  connect(menus_, &QListWidget::itemSelectionChanged, this, [this] { menuChosen(); });
  connect(menus_, &QListWidget::itemClicked, this, [this] { menuChosen(); });
  connect(menus_, &QListWidget::customContextMenuRequested, this, [this](const QPoint& at) { showContextMenu(at); });
  connect(
      menus_->model(), &QAbstractItemModel::rowsMoved, this, [this] { rowsMoved(); }, Qt::QueuedConnection);
  connect(hits_, &QListWidget::itemClicked, this, [this] { openRow(*hits_); });
  connect(pages_, &QListWidget::itemSelectionChanged, this, [this] { openRow(*pages_); });
}

QString Sidebar::text(StringKey key) const { return toQString(models_.localization.text(key)); }

void Sidebar::refresh() {
  search_->setPlaceholderText(text(StringKey::menusSearch));
  search_->setAccessibleName(text(StringKey::menusSearch));
  heading_->setText(text(StringKey::menusHeading));
  menus_->setAccessibleName(text(StringKey::menusHeading));
  hits_->setAccessibleName(text(StringKey::menusSearch));
  nothing_->setText(text(StringKey::menusNothingFound));
  add_->setName(text(StringKey::menusAdd));
  duplicate_->setName(text(StringKey::settingsDuplicate));
  remove_->setName(text(StringKey::settingsDelete));
  up_->setName(text(StringKey::settingsMoveUp));
  down_->setName(text(StringKey::settingsMoveDown));
  undo_->setName(text(StringKey::settingsUndo), QKeySequence::Undo);
  redo_->setName(text(StringKey::settingsRedo), QKeySequence::Redo);
  undo_->setEnabled(models_.history.canUndo());
  redo_->setEnabled(models_.history.canRedo());
  refreshMenus();
  refreshPages();
  refreshHits();
}

QIcon Sidebar::menuIcon(const MenuList::Row& row) const {
  const double ratio = devicePixelRatioF();
  if (row.kind != PieMenuKind::standard) {
    const char* symbol = row.kind == PieMenuKind::runningApps ? "square.grid.2x2.fill" : "command";
    QPalette colors = palette();
    if (row.isOff) colors.setColor(QPalette::Text, colors.color(QPalette::Disabled, QPalette::Text));
    return icons_.ofRow(IconReference::parse(symbol), kMenuIcon, colors, ratio);
  }
  const QColor color(toQString(row.color));
  QIcon icon(menuRing(color, Qt::transparent, ratio));
  // The row's own colour may be that of the menu.
  icon.addPixmap(menuRing(color, palette().color(QPalette::HighlightedText), ratio), QIcon::Selected);
  return icon;
}

void Sidebar::refreshMenus() {
  const QScopedValueRollback guard(isRefreshing_, true);
  const auto rows = models_.menus.rows();
  while (menus_->count() > static_cast<int>(rows.size())) delete menus_->takeItem(menus_->count() - 1);
  while (menus_->count() < static_cast<int>(rows.size())) menus_->addItem(new QListWidgetItem);
  const PieMenu* shown = models_.navigation.page() == SettingsPage::menu ? models_.navigation.menu() : nullptr;
  int current = -1;
  for (int i = 0; i < menus_->count(); ++i) {
    const MenuList::Row& row = rows[static_cast<std::size_t>(i)];
    QListWidgetItem& item = *menus_->item(i);
    const QString name = toQString(row.name);
    item.setText(name);
    item.setToolTip(name);
    item.setData(Qt::AccessibleTextRole, name);
    item.setData(Qt::AccessibleDescriptionRole, toQString(row.trigger));
    item.setData(TwoLineDelegate::kSecondLine, toQString(row.trigger));
    item.setData(TwoLineDelegate::kIsQuiet, row.isOff);
    item.setData(kMenuId, toQString(row.id.string()));
    item.setIcon(menuIcon(row));
    if (shown != nullptr && shown->id == row.id) current = i;
  }
  menus_->setCurrentRow(current);
  if (current < 0) menus_->clearSelection();
  const bool isStandard = shown != nullptr && models_.menus.isStandard(shown->id);
  duplicate_->setEnabled(isStandard);
  remove_->setEnabled(isStandard);
  up_->setEnabled(current > 0);
  down_->setEnabled(current >= 0 && current + 1 < menus_->count());
}

void Sidebar::refreshPages() {
  const QScopedValueRollback guard(isRefreshing_, true);
  if (pages_->count() == 0) {
    for (std::size_t i = 0; i < kPages.size(); ++i) pages_->addItem(new QListWidgetItem);
  }
  int current = -1;
  for (std::size_t i = 0; i < kPages.size(); ++i) {
    QListWidgetItem& item = *pages_->item(static_cast<int>(i));
    item.setText(text(kPages[i].name));
    item.setIcon(icons_.ofRow(IconReference::parse(kPages[i].symbol), kPageIcon, palette(), devicePixelRatioF()));
    if (kPages[i].page == models_.navigation.page()) current = static_cast<int>(i);
  }
  pages_->setAccessibleName(text(StringKey::settings));
  pages_->setCurrentRow(current);
  if (current < 0) pages_->clearSelection();
  fitRows(*pages_);
}

void Sidebar::refreshHits() {
  const QScopedValueRollback guard(isRefreshing_, true);
  const std::string query = search_->text().toStdString();
  const bool isSearching = !search_->text().trimmed().isEmpty();
  const auto hits = isSearching ? models_.menus.search(query) : std::vector<MenuList::Hit>();
  const int kept = hits_->currentRow();
  hits_->clear();
  for (const MenuList::Hit& hit : hits) {
    auto* row = new QListWidgetItem(toQString(hit.title));
    row->setData(kMenuId, toQString(hit.menu.string()));
    if (hit.item) {
      row->setData(kItemId, toQString(hit.item->id.string()));
      row->setIcon(icons_.ofRow(IconReference::of(*hit.item), kMenuIcon, palette(), devicePixelRatioF()));
      row->setData(TwoLineDelegate::kSecondLine, toQString(hit.place));
      row->setData(Qt::AccessibleDescriptionRole, toQString(hit.place));
    } else {
      for (const MenuList::Row& menu : models_.menus.rows()) {
        if (menu.id == hit.menu) row->setIcon(menuIcon(menu));
      }
    }
    hits_->addItem(row);
  }
  hits_->setCurrentRow(std::min(std::max(kept, 0), hits_->count() - 1));
  menus_->setVisible(!isSearching);
  hits_->setVisible(isSearching && !hits.empty());
  nothing_->setVisible(isSearching && hits.empty());
}

std::optional<Uuid> Sidebar::chosenMenu() const {
  const bool isShown = models_.navigation.page() == SettingsPage::menu && models_.navigation.menu() != nullptr;
  return isShown ? std::optional(models_.navigation.menu()->id) : std::nullopt;
}

void Sidebar::menuChosen() {
  if (isRefreshing_ || menus_->selectedItems().isEmpty()) return;
  if (const auto menu = idOf(menus_->currentItem(), kMenuId); menu && menu != chosenMenu()) {
    models_.navigation.openMenu(*menu);
  }
}

void Sidebar::openRow(QListWidget& list) {
  if (isRefreshing_ || list.selectedItems().isEmpty()) return;
  if (&list == pages_) return models_.navigation.open(kPages.at(static_cast<std::size_t>(list.currentRow())).page);
  const auto menu = idOf(list.currentItem(), kMenuId);
  if (menu) models_.navigation.openMenu(*menu, idOf(list.currentItem(), kItemId));
}

void Sidebar::moveChosen(int places) {
  const int to = menus_->currentRow() + places;
  if (const auto menu = chosenMenu(); menu && to >= 0) models_.menus.move(*menu, static_cast<std::size_t>(to));
}

/// The rows have the order of a drag; each list item knows its menu.
void Sidebar::rowsMoved() {
  const auto rows = models_.menus.rows();
  for (int i = 0; i < menus_->count(); ++i) {
    const auto menu = idOf(menus_->item(i), kMenuId);
    if (!menu || rows[static_cast<std::size_t>(i)].id == *menu) continue;
    // The first difference is the moved menu, or the one that took its place.
    const auto was = std::ranges::find(rows, *menu, &MenuList::Row::id) - rows.begin();
    if (was == i + 1) {
      const Uuid moved = rows[static_cast<std::size_t>(i)].id;
      for (int to = 0; to < menus_->count(); ++to) {
        if (idOf(menus_->item(to), kMenuId) == moved) return models_.menus.move(moved, static_cast<std::size_t>(to));
      }
    }
    return models_.menus.move(*menu, static_cast<std::size_t>(i));
  }
}

void Sidebar::showContextMenu(const QPoint& at) {
  const auto menu = idOf(menus_->itemAt(at), kMenuId);
  auto* popup = new QMenu(this);
  popup->setAttribute(Qt::WA_DeleteOnClose);
  popup->addAction(text(StringKey::menusAdd), this, [this] { models_.menus.add(); });
  if (menu && models_.menus.isStandard(*menu)) {
    popup->addAction(text(StringKey::settingsDuplicate), this, [this, id = *menu] { models_.menus.duplicate(id); });
    popup->addAction(text(StringKey::settingsDelete), this, [this, id = *menu] { models_.menus.remove(id); });
  }
  popup->popup(menus_->viewport()->mapToGlobal(at));
}

void Sidebar::search() { search_->setFocus(Qt::ShortcutFocusReason); }

bool Sidebar::endSearch() {
  if (search_->text().isEmpty()) return false;
  search_->clear();
  return true;
}

bool Sidebar::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QWidget::eventFilter(watched, event);
  const auto& key = *static_cast<QKeyEvent*>(event);
  const bool isEnter = key.key() == Qt::Key_Return || key.key() == Qt::Key_Enter;
  // The focus has made the first row current: the key chooses that row, not the next one.
  if (auto* list = qobject_cast<QListWidget*>(watched); list != nullptr && list->selectedItems().isEmpty()) {
    const bool chooses = isEnter || key.key() == Qt::Key_Down || key.key() == Qt::Key_Up;
    if (chooses && list->currentRow() >= 0) return list->setCurrentRow(list->currentRow()), true;
  }
  if (watched == search_) {
    if (isEnter && hits_->isVisible()) return openRow(*hits_), true;
    if (key.key() == Qt::Key_Down && hits_->isVisible()) return hits_->setFocus(), true;
    if (key.key() == Qt::Key_Escape) return endSearch();
  }
  if (watched == hits_) {
    if (isEnter) return openRow(*hits_), true;
    if (key.key() == Qt::Key_Escape) return search_->setFocus(), endSearch();
  }
  if (watched == menus_) {
    if (key.key() == Qt::Key_Delete) return remove_->animateClick(), true;
    if (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_Up) return moveChosen(-1), true;
    if (key.modifiers() == Qt::AltModifier && key.key() == Qt::Key_Down) return moveChosen(1), true;
  }
  return QWidget::eventFilter(watched, event);
}

}  // namespace rondora
