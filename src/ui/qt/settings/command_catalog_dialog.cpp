#include "ui/qt/settings/command_catalog_dialog.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <algorithm>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"
#include "ui/qt/settings/two_line_delegate.h"

namespace rondora {
namespace {

constexpr QSize kSize(460, 520);
constexpr int kMargin = 16;

bool writes(const QKeyEvent& press) {
  const bool isCommand = (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const bool isText = !press.text().isEmpty() && press.text().front().isPrint();
  return !isCommand && (isText || press.key() == Qt::Key_Backspace);
}

}  // namespace

CommandCatalogDialog::CommandCatalogDialog(AppCommandSets& sets, const LocalizationStore& localization,
                                           const ItemIcons& icons, QWidget* parent)
    : QDialog(parent == nullptr ? nullptr : parent->window()),
      sets_(sets),
      localization_(localization),
      search_(new QLineEdit),
      pages_(new QStackedWidget),
      view_(new QListView),
      rows_(new CommandRows(sets, localization, icons, *view_)),
      nothing_(settings_look::makeNote()),
      note_(settings_look::makeNote()),
      again_(new QPushButton),
      add_(new QPushButton),
      close_(new QPushButton),
      application_(sets.chosen()) {
  view_->setModel(rows_);
  view_->setItemDelegate(new TwoLineDelegate(view_));
  view_->setIconSize({settings_look::kListIcon, settings_look::kListIcon});
  view_->setUniformItemSizes(true);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  view_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  view_->installEventFilter(this);
  makeLayout();
  connect(search_, &QLineEdit::textChanged, this, [this] {
    rows_->search(search_->text());
    chooseRow(0);
    present();
  });
  connect(view_, &QListView::doubleClicked, this, [this] { accept(); });
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { currentChanged(); });
  connect(add_, &QPushButton::clicked, this, [this] { accept(); });
  connect(close_, &QPushButton::clicked, this, [this] { reject(); });
  connect(again_, &QPushButton::clicked, this, [this] { sets_.catalog().readAgain(); });
  changed_ = sets_.onChanged([this] { listAgain(); });
  if (sets_.catalog().state() != CommandCatalog::State::complete) sets_.catalog().readAgain();
  listAgain();
  resize(kSize);
}

void CommandCatalogDialog::makeLayout() {
  pages_->addWidget(view_);
  pages_->addWidget(nothing_);
  for (QPushButton* button : {again_, close_}) button->setAutoDefault(false);
  add_->setDefault(true);
  auto* buttons = new QHBoxLayout;
  buttons->addWidget(again_);
  buttons->addStretch(1);
  buttons->addWidget(close_);
  buttons->addWidget(add_);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(search_);
  column->addWidget(pages_, 1);
  column->addWidget(note_);
  column->addSpacing(settings_look::kSmallGap);
  column->addLayout(buttons);
}

QString CommandCatalogDialog::text(StringKey key) const { return toQString(localization_.text(key)); }

void CommandCatalogDialog::listAgain() {
  if (sets_.chosen() != application_) return reject();
  const int row = view_->currentIndex().row();
  rows_->search(search_->text());
  chooseRow(std::max(row, 0));
  present();
}

void CommandCatalogDialog::present() {
  const CommandCatalog& catalog = sets_.catalog();
  setWindowTitle(toQString(localization_.text(StringKey::catalogTitle, sets_.chosenTitle())));
  search_->setPlaceholderText(text(StringKey::catalogSearch));
  search_->setAccessibleName(search_->placeholderText());
  view_->setAccessibleName(windowTitle());
  again_->setText(text(StringKey::catalogReadAgain));
  again_->setEnabled(catalog.state() != CommandCatalog::State::reading);
  add_->setText(text(StringKey::catalogAdd));
  close_->setText(text(StringKey::settingsClose));
  const QString note = toQString(catalog.note());
  const bool isEmpty = catalog.commands().empty();
  nothing_->setText(isEmpty ? note : text(StringKey::catalogNoMatch));
  nothing_->setAlignment(Qt::AlignCenter);
  pages_->setCurrentIndex(rows_->rowCount() == 0 ? 1 : 0);
  settings_look::showText(*note_, isEmpty ? QString() : note);
  search_->setEnabled(!isEmpty);
  currentChanged();
}

void CommandCatalogDialog::chooseRow(int row) {
  const int last = rows_->rowCount() - 1;
  view_->setCurrentIndex(rows_->index(std::min(row, last)));
  view_->scrollTo(view_->currentIndex());
}

void CommandCatalogDialog::currentChanged() {
  const QModelIndex current = view_->currentIndex();
  add_->setEnabled(current.isValid() && !rows_->isInSet(current.row()));
  // Screen readers tell it while the search keeps the focus.
  search_->setAccessibleDescription(current.data(Qt::AccessibleTextRole).toString());
}

void CommandCatalogDialog::accept() {
  const QModelIndex current = view_->currentIndex();
  if (!current.isValid() || rows_->isInSet(current.row())) return;
  if (const auto added = sets_.addMenuCommand(rows_->command(current.row()))) sets_.chooseEntry(added);
}

bool CommandCatalogDialog::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto& press = static_cast<QKeyEvent&>(*event);
  if (watched == search_ && pressInSearch(press)) return true;
  if (watched == view_ && writes(press)) {
    search_->setFocus(Qt::ShortcutFocusReason);
    QCoreApplication::sendEvent(search_, event);
    return true;
  }
  return QDialog::eventFilter(watched, event);
}

bool CommandCatalogDialog::pressInSearch(QKeyEvent& press) {
  const auto moves = {Qt::Key_Up, Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
  if (std::find(moves.begin(), moves.end(), press.key()) == moves.end()) return false;
  QCoreApplication::sendEvent(view_, &press);
  return true;
}

void CommandCatalogDialog::changeEvent(QEvent* event) {
  QDialog::changeEvent(event);
  if (event->type() == QEvent::LanguageChange || event->type() == QEvent::LayoutDirectionChange) present();
}

}  // namespace rondora
