#include "ui/qt/settings/application_chooser.h"

#include <QCoreApplication>
#include <QDialogButtonBox>
#include <QKeyEvent>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr QSize kSize(440, 520);
constexpr int kIconSide = 32;
constexpr int kMargin = 16;

bool writes(const QKeyEvent& press) {
  const bool isCommand = (press.modifiers() & (Qt::ControlModifier | Qt::AltModifier | Qt::MetaModifier)) != 0;
  const bool isText = !press.text().isEmpty() && press.text().front().isPrint();
  return !isCommand && (isText || press.key() == Qt::Key_Backspace);
}

}  // namespace

void ApplicationChooser::open(std::unique_ptr<ApplicationList> list, const LocalizationStore& localization,
                              const ItemIcons& icons, Chosen chosen, QWidget& parent) {
  auto* dialog = new ApplicationChooser(std::move(list), localization, icons, std::move(chosen), parent.window());
  dialog->setAttribute(Qt::WA_DeleteOnClose);
  dialog->QDialog::open();
}

ApplicationChooser::ApplicationChooser(std::unique_ptr<ApplicationList> list, const LocalizationStore& localization,
                                       const ItemIcons& icons, Chosen chosen, QWidget* parent)
    : QDialog(parent),
      list_(std::move(list)),
      localization_(localization),
      chosen_(std::move(chosen)),
      search_(new QLineEdit),
      pages_(new QStackedWidget),
      view_(new QListView),
      nothing_(settings_look::makeNote()),
      rows_(new ApplicationRows(this)) {
  view_->setModel(rows_);
  view_->setItemDelegate(new ApplicationRowPainter(icons, kIconSide, true, view_));
  view_->setUniformItemSizes(true);
  view_->setEditTriggers(QAbstractItemView::NoEditTriggers);
  makeLayout();
  search_->setClearButtonEnabled(true);
  search_->installEventFilter(this);
  view_->installEventFilter(this);
  connect(search_, &QLineEdit::textChanged, this, [this](const QString& text) {
    list_->search(text.toStdString());
    present();
    chooseFirst();
  });
  connect(view_, &QListView::doubleClicked, this, [this] { accept(); });
  connect(view_->selectionModel(), &QItemSelectionModel::currentChanged, this, [this] { showCurrent(); });
  changed_ = list_->onChanged([this] { present(); });
  decoded_ = icons.onDecoded([this] { view_->viewport()->update(); });
  showTexts();
  present();
  resize(kSize);
}

void ApplicationChooser::makeLayout() {
  nothing_->setAlignment(Qt::AlignCenter);
  pages_->addWidget(view_);
  pages_->addWidget(nothing_);
  auto* buttons = new QDialogButtonBox;
  choose_ = buttons->addButton(QString(), QDialogButtonBox::AcceptRole);
  cancel_ = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
  choose_->setDefault(true);
  cancel_->setAutoDefault(false);
  connect(buttons, &QDialogButtonBox::accepted, this, &ApplicationChooser::accept);
  connect(buttons, &QDialogButtonBox::rejected, this, &ApplicationChooser::reject);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(kMargin, kMargin, kMargin, kMargin);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(search_);
  column->addWidget(pages_, 1);
  column->addSpacing(settings_look::kSmallGap);
  column->addWidget(buttons);
}

QString ApplicationChooser::text(StringKey key) const { return toQString(localization_.text(key)); }

void ApplicationChooser::refresh() {
  showTexts();
  list_->read();
  present();
}

void ApplicationChooser::showTexts() {
  setWindowTitle(text(StringKey::applicationsTitle));
  search_->setPlaceholderText(text(StringKey::applicationsSearch));
  search_->setAccessibleName(search_->placeholderText());
  view_->setAccessibleName(text(StringKey::applicationsTitle));
  nothing_->setText(text(StringKey::menusNothingFound));
  choose_->setText(text(StringKey::applicationsChoose));
  cancel_->setText(text(StringKey::hotkeyCancel));
}

void ApplicationChooser::present() {
  const QString before = view_->currentIndex().data(ApplicationRows::kIdentifierRole).toString();
  std::vector<ApplicationRow> rows;
  rows.reserve(list_->found().size());
  for (const ApplicationChoice& each : list_->found()) {
    rows.push_back({toQString(each.bundleIdentifier), toQString(each.name), toQString(each.detail),
                    each.isRunning ? text(StringKey::applicationsRunning) : QString()});
  }
  rows_->show(std::move(rows));
  const QModelIndex kept = rows_->find(before);
  kept.isValid() ? choose(kept.row()) : chooseFirst();
  pages_->setCurrentIndex(list_->found().empty() ? 1 : 0);
}

/// Enter takes no identifier that the user has only begun to type.
void ApplicationChooser::chooseFirst() {
  const auto& found = list_->found();
  choose(found.empty() || found.front().isTyped ? -1 : 0);
}

void ApplicationChooser::choose(int row) {
  view_->setCurrentIndex(rows_->index(row));
  view_->scrollTo(view_->currentIndex());
  // The view does not tell that a new list has no current row.
  showCurrent();
}

void ApplicationChooser::showCurrent() {
  const QModelIndex current = view_->currentIndex();
  choose_->setEnabled(current.isValid());
  // Screen readers tell it while the search keeps the focus.
  search_->setAccessibleDescription(current.data(Qt::AccessibleTextRole).toString());
}

void ApplicationChooser::accept() {
  const QModelIndex current = view_->currentIndex();
  if (!current.isValid()) return;
  const std::string identifier = current.data(ApplicationRows::kIdentifierRole).toString().toStdString();
  QDialog::accept();
  if (const auto chosen = std::exchange(chosen_, nullptr)) chosen(identifier);
}

bool ApplicationChooser::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() != QEvent::KeyPress) return QDialog::eventFilter(watched, event);
  auto& press = static_cast<QKeyEvent&>(*event);
  const bool isDone = watched == search_ ? pressInSearch(press) : pressInList(press);
  return isDone || QDialog::eventFilter(watched, event);
}

bool ApplicationChooser::pressInSearch(QKeyEvent& press) {
  const bool goesDown = press.key() == Qt::Key_Down || press.key() == Qt::Key_PageDown;
  if (!goesDown || list_->found().empty()) return false;
  view_->setFocus(Qt::OtherFocusReason);
  QCoreApplication::sendEvent(view_, &press);
  return true;
}

bool ApplicationChooser::pressInList(QKeyEvent& press) {
  const bool leavesTop = press.key() == Qt::Key_Up && view_->currentIndex().row() <= 0;
  if (!leavesTop && !writes(press)) return false;
  search_->setFocus(Qt::OtherFocusReason);
  if (!leavesTop) QCoreApplication::sendEvent(search_, &press);
  return true;
}

}  // namespace rondora
