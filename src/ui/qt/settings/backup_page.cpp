#include "ui/qt/settings/backup_page.h"

#include <QClipboard>
#include <QDate>
#include <QEvent>
#include <QGuiApplication>
#include <QHBoxLayout>
#include <QPointer>
#include <QVBoxLayout>
#include <utility>

#include "platform/qt/qt_text.h"
#include "ui/qt/settings/page_parts.h"

namespace rondora {
namespace {

constexpr std::array<StringKey, 3> kHeadings = {StringKey::backupExport, StringKey::findingImport,
                                                StringKey::backupCopies};
constexpr std::array<StringKey, 3> kNotes = {StringKey::backupExportNote, StringKey::backupImportNote,
                                             StringKey::backupCopiesNote};

std::size_t index(SettingsBackup::Section section) { return static_cast<std::size_t>(section); }

void addLeading(QVBoxLayout& column, QPushButton& button) {
  button.setAutoDefault(false);
  auto* row = new QHBoxLayout;
  row->addWidget(&button);
  row->addStretch();
  column.addLayout(row);
}

}  // namespace

BackupPage::BackupPage(SettingsBackup& backup, const LocalizationStore& localization, const ItemIcons& icons,
                       FileChooser& chooser)
    : backup_(backup),
      localization_(localization),
      chooser_(chooser),
      title_(settings_look::makeTitle()),
      path_(new QLineEdit),
      copy_(new QPushButton),
      openFolder_(new QPushButton),
      export_(new QPushButton),
      import_(new QPushButton),
      copies_(new KeptCopiesView(backup, localization, icons, [this] { refresh(); })),
      preview_(new ImportPreview(localization, icons)) {
  for (QLabel*& heading : headings_) heading = settings_look::makeHeading();
  for (QLabel*& note : notes_) note = settings_look::makeNote();
  QVBoxLayout* column = nullptr;
  auto* whole = new QVBoxLayout(this);
  whole->setContentsMargins(0, 0, 0, 0);
  area_ = qobject_cast<QScrollArea*>(settings_look::makeScrollingPage(column));
  whole->addWidget(area_);
  preview_->setParent(this);
  preview_->hide();
  build(*column);
  connectButtons();
  backup_.findCopies();
  refresh();
}

// In Tab order.
void BackupPage::build(QVBoxLayout& column) {
  column.addWidget(title_);
  buildFile(column);
  const std::array<QPushButton*, 2> buttons = {export_, import_};
  const std::array<Section, 3> sections = {Section::exporting, Section::importing, Section::copies};
  for (std::size_t i = 0; i < sections.size(); ++i) {
    column.addSpacing(settings_look::kSectionGap);
    column.addWidget(headings_.at(i));
    column.addWidget(notes_.at(i));
    if (i < buttons.size()) {
      addLeading(column, *buttons.at(i));
    } else {
      column.addWidget(copies_);
    }
    addNotice(column, sections.at(i));
    if (sections.at(i) != Section::exporting) addPreview(column, sections.at(i));
  }
  column.addStretch();
}

void BackupPage::buildFile(QVBoxLayout& column) {
  path_->setReadOnly(true);
  path_->setLayoutDirection(Qt::LeftToRight);
  // The toolkit's own menu is only in English.
  path_->setContextMenuPolicy(Qt::NoContextMenu);
  fileLabel_ = settings_look::makeLabelFor(*path_);
  auto* row = new QHBoxLayout;
  row->addWidget(path_, 1);
  for (QPushButton* button : {copy_, openFolder_}) {
    button->setAutoDefault(false);
    row->addWidget(button);
  }
  column.addWidget(fileLabel_);
  column.addLayout(row);
  addNotice(column, Section::file);
}

QLabel* BackupPage::addNotice(QVBoxLayout& column, Section section) {
  QLabel* notice = settings_look::makeProblem();
  column.addWidget(notice);
  return notices_.at(index(section)) = notice;
}

QVBoxLayout* BackupPage::addPreview(QVBoxLayout& column, Section section) {
  auto* place = new QVBoxLayout;
  column.addLayout(place);
  return previewPlaces_.at(index(section)) = place;
}

void BackupPage::connectButtons() {
  connect(copy_, &QPushButton::clicked, this, [this] { copyPath(); });
  connect(openFolder_, &QPushButton::clicked, this, [this] {
    backup_.openFolder();
    refresh();
  });
  connect(export_, &QPushButton::clicked, this, [this] { chooseExport(); });
  connect(import_, &QPushButton::clicked, this, [this] { chooseImport(); });
  connect(&preview_->apply(), &QPushButton::clicked, this, [this] { endPreview(true); });
  connect(&preview_->cancel(), &QPushButton::clicked, this, [this] { endPreview(false); });
}

QString BackupPage::text(StringKey key) const { return toQString(localization_.text(key)); }

void BackupPage::refresh() {
  refreshTexts();
  copies_->refresh();
  refreshNotices();
  refreshPreview();
}

void BackupPage::refreshTexts() {
  title_->setText(text(StringKey::backupTitle));
  settings_look::nameControl(*fileLabel_, text(StringKey::settingsConfigurationFile));
  const QString path = toQString(backup_.documentPath());
  if (path_->text() != path) {
    path_->setText(path);
    path_->setCursorPosition(0);
  }
  copy_->setText(text(StringKey::settingsCopy));
  openFolder_->setText(text(StringKey::settingsOpenFolder));
  for (std::size_t i = 0; i < headings_.size(); ++i) {
    headings_.at(i)->setText(text(kHeadings.at(i)));
    notes_.at(i)->setText(text(kNotes.at(i)));
  }
  export_->setText(text(StringKey::backupExportButton));
  import_->setText(text(StringKey::backupChooseFile));
}

void BackupPage::refreshNotices() {
  for (const Section section : {Section::file, Section::exporting, Section::importing, Section::copies}) {
    const auto notice = backup_.notice(section);
    settings_look::showText(*notices_.at(index(section)), notice ? toQString(notice->text) : QString());
  }
  // Screen readers tell it with the button that has the focus.
  export_->setAccessibleDescription(notices_.at(index(Section::exporting))->text());
  import_->setAccessibleDescription(notices_.at(index(Section::importing))->text());
}

void BackupPage::refreshPreview() {
  const auto preview = backup_.preview();
  if (!preview) return preview_->hide();
  QVBoxLayout* place = previewPlaces_.at(index(preview->section));
  if (place->indexOf(preview_) < 0) {
    place->addWidget(preview_);
    preview_->follow(preview->section == Section::copies ? copies_->last() : *import_);
  }
  const bool isNew = preview_->isHidden();
  preview_->show(*preview);
  if (!isNew) return;
  preview_->takeFocus();
  // Once it has its place.
  QMetaObject::invokeMethod(
      this, [this] { area_->ensureWidgetVisible(preview_); }, Qt::QueuedConnection);
}

bool BackupPage::event(QEvent* event) {
  // The user may have mended a copy in an editor meanwhile.
  if (event->type() == QEvent::WindowActivate && isVisible()) findCopies();
  return QWidget::event(event);
}

void BackupPage::showEvent(QShowEvent* event) {
  findCopies();
  QWidget::showEvent(event);
}

void BackupPage::findCopies() {
  backup_.findCopies();
  copies_->refresh();
}

void BackupPage::copyPath() {
  path_->selectAll();
  QGuiApplication::clipboard()->setText(path_->text());
}

void BackupPage::chooseExport() {
  FileChoice choice;
  choice.purpose = FileChoice::Purpose::save;
  choice.title = plain(StringKey::backupExport);
  choice.suggestedName = SettingsBackup::suggestedName(QDate::currentDate().toString(Qt::ISODate).toStdString());
  choice.extension = "json";
  choose(std::move(choice), &SettingsBackup::exportTo);
}

void BackupPage::chooseImport() {
  FileChoice choice;
  choice.title = plain(StringKey::findingImport);
  choose(std::move(choice), &SettingsBackup::readImport);
}

void BackupPage::choose(FileChoice choice, void (SettingsBackup::*use)(const std::string&)) {
  choice.kinds = {{plain(StringKey::backupFiles), {"*.json"}}, {plain(StringKey::backupAllFiles), {"*"}}};
  chooser_.choose(choice, [page = QPointer<BackupPage>(this), use](const std::optional<std::string>& path) {
    if (!path || !page) return;
    (page->backup_.*use)(*path);
    page->refresh();
  });
}

void BackupPage::endPreview(bool applies) {
  const auto preview = backup_.preview();
  if (applies) {
    backup_.apply();
    backup_.findCopies();
  } else {
    backup_.cancel();
  }
  if (preview && preview->section == Section::copies) {
    copies_->takeFocus();
  } else {
    import_->setFocus();
  }
  refresh();
}

}  // namespace rondora
