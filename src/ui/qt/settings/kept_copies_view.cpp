#include "ui/qt/settings/kept_copies_view.h"

#include <QDateTime>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLocale>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

#include "base/unicode.h"
#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr int kFile = Qt::UserRole;
constexpr int kMaxListHeight = 240;
constexpr std::uint64_t kKilobyte = 1000;
/// Of 2001-01-01 00:00:00 UTC, in seconds since 1970.
constexpr qint64 kReferenceDate = 978307200;

/// With the digits of the program's other texts.
QString inTextDigits(QString text) {
  for (QChar& c : text) {
    if (c.isDigit()) c = QChar(u'0' + c.digitValue());
  }
  return text;
}

QPushButton* makeButton(QHBoxLayout& row) {
  auto* button = new QPushButton;
  button->setAutoDefault(false);
  row.addWidget(button);
  return button;
}

}  // namespace

KeptCopiesView::KeptCopiesView(SettingsBackup& backup, const LocalizationStore& localization, const ItemIcons& icons,
                               std::function<void()> changed)
    : backup_(backup),
      localization_(localization),
      icons_(icons),
      changed_(std::move(changed)),
      none_(settings_look::makeNote()),
      copies_(new FittedList(kMaxListHeight)),
      question_(new QWidget),
      questionText_(settings_look::makeNote()) {
  copies_->setTextElideMode(Qt::ElideNone);
  copies_->installEventFilter(this);
  layOut();
  connect(copies_, &QListWidget::itemActivated, this, [this] { restore(); });
  connect(restore_, &QPushButton::clicked, this, [this] { restore(); });
  connect(delete_, &QPushButton::clicked, this, [this] { ask(); });
  connect(openFolder_, &QPushButton::clicked, this, [this] {
    backup_.revealCopies();
    changed_();
  });
  connect(confirm_, &QPushButton::clicked, this, [this] { answer(true); });
  connect(keep_, &QPushButton::clicked, this, [this] { answer(false); });
}

void KeptCopiesView::layOut() {
  auto* commands = new QHBoxLayout;
  restore_ = makeButton(*commands);
  openFolder_ = makeButton(*commands);
  delete_ = makeButton(*commands);
  commands->addStretch();
  auto* answers = new QHBoxLayout;
  confirm_ = makeButton(*answers);
  keep_ = makeButton(*answers);
  answers->addStretch();
  auto* asked = new QVBoxLayout(question_);
  asked->setContentsMargins(0, 0, 0, 0);
  asked->addWidget(questionText_);
  asked->addLayout(answers);
  auto* column = new QVBoxLayout(this);
  column->setContentsMargins(0, 0, 0, 0);
  column->setSpacing(settings_look::kRowGap);
  column->addWidget(none_);
  column->addWidget(copies_);
  column->addLayout(commands);
  column->addWidget(question_);
}

QString KeptCopiesView::text(StringKey key) const { return toQString(localization_.text(key)); }

void KeptCopiesView::refresh() {
  none_->setText(text(StringKey::backupNoCopies));
  copies_->setAccessibleName(text(StringKey::backupCopies));
  // Screen readers tell it with the list that has the focus.
  const auto notice = backup_.notice(SettingsBackup::Section::copies);
  copies_->setAccessibleDescription(toQString(notice ? notice->text : std::string()));
  restore_->setText(text(StringKey::findingRestore));
  openFolder_->setText(text(StringKey::settingsOpenFolder));
  delete_->setText(text(StringKey::backupDelete));
  confirm_->setText(text(StringKey::backupDelete));
  keep_->setText(text(StringKey::hotkeyCancel));
  refreshRows();
  refreshQuestion();
}

// Unchanged rows stay, and with them the place of the list.
void KeptCopiesView::refreshRows() {
  const auto copies = backup_.copies();
  QStringList titles;
  for (const SettingsBackup::Copy& copy : copies) titles += title(copy) + toQString(copy.file);
  if (titles == shown_ && !titles.empty()) return;
  shown_ = titles;
  const std::string former = chosen();
  const int row = copies_->currentRow();
  copies_->clear();
  for (const SettingsBackup::Copy& copy : copies) {
    addRow(copy, title(copy));
    if (copy.file == former) copies_->setCurrentRow(copies_->count() - 1);
  }
  if (copies_->currentRow() < 0) copies_->setCurrentRow(std::clamp(row, 0, std::max(0, copies_->count() - 1)));
  const bool hasCopies = !copies.empty();
  none_->setVisible(!hasCopies);
  copies_->setVisible(hasCopies);
  for (QPushButton* button : {restore_, openFolder_, delete_}) button->setVisible(hasCopies);
  copies_->fit();
}

void KeptCopiesView::addRow(const SettingsBackup::Copy& copy, const QString& title) {
  const auto symbol = IconReference::parse(copy.isReadable ? "doc.text.fill" : "exclamationmark.triangle.fill");
  const QIcon icon = icons_.ofRow(symbol, settings_look::kListIcon, palette(), devicePixelRatioF());
  auto* item = new QListWidgetItem(icon, title, copies_);
  item->setData(kFile, toQString(copy.file));
  item->setToolTip(toQString(copy.file));
}

/// Why and when on the first line, below it what and how much.
QString KeptCopiesView::title(const SettingsBackup::Copy& copy) const {
  const QLocale locale(toQString(rawValue(localization_.language())));
  const auto moment = QDateTime::fromSecsSinceEpoch(kReferenceDate + static_cast<qint64>(copy.time));
  const auto part = [](const QString& text) { return toQString(isolated(text.toStdString())); };
  const QString separator = QStringLiteral(" · ");
  const auto kilobytes = (copy.size + kKilobyte - 1) / kKilobyte;
  return toQString(copy.reason) + separator + part(inTextDigits(locale.toString(moment, QLocale::ShortFormat))) +
         QChar(QChar::LineSeparator) + toQString(copy.contents) + separator +
         part(QString::number(kilobytes) + QStringLiteral(" kB"));
}

void KeptCopiesView::refreshQuestion() {
  const auto question = backup_.question();
  question_->setVisible(question.has_value());
  const QString asked = toQString(question.value_or(std::string()));
  questionText_->setText(asked);
  for (QPushButton* button : {confirm_, keep_}) button->setAccessibleDescription(asked);
}

std::string KeptCopiesView::chosen() const {
  const QListWidgetItem* item = copies_->currentItem();
  return item == nullptr ? std::string() : item->data(kFile).toString().toStdString();
}

void KeptCopiesView::restore() {
  if (copies_->currentItem() == nullptr) return;
  backup_.readCopy(chosen());
  changed_();
}

void KeptCopiesView::ask() {
  if (copies_->currentItem() == nullptr) return;
  backup_.askToRemove(chosen());
  changed_();
  keep_->setFocus();
}

void KeptCopiesView::answer(bool deletes) {
  if (deletes) {
    backup_.remove();
  } else {
    backup_.cancel();
  }
  takeFocus();
  changed_();
}

void KeptCopiesView::takeFocus() {
  if (!copies_->isHidden()) copies_->setFocus();
}

bool KeptCopiesView::eventFilter(QObject* watched, QEvent* event) {
  if (event->type() == QEvent::KeyPress && static_cast<QKeyEvent*>(event)->matches(QKeySequence::Delete)) {
    ask();
    return true;
  }
  return QWidget::eventFilter(watched, event);
}

void KeptCopiesView::keyPressEvent(QKeyEvent* event) {
  if (event->key() != Qt::Key_Escape || question_->isHidden()) return QWidget::keyPressEvent(event);
  answer(false);
}

void KeptCopiesView::changeEvent(QEvent* event) {
  QWidget::changeEvent(event);
  if (event->type() != QEvent::PaletteChange) return;
  shown_.clear();
  refreshRows();
}

}  // namespace rondora
