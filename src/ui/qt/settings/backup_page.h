#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>
#include <string>

#include "platform/file_chooser.h"
#include "settings/backup/settings_backup.h"
#include "ui/qt/settings/import_preview.h"
#include "ui/qt/settings/item_icons.h"
#include "ui/qt/settings/kept_copies_view.h"

namespace rondora {

/// The page of the settings with export, import and kept copies.
class BackupPage : public QWidget {
 public:
  /// The references must outlive the object.
  BackupPage(SettingsBackup& backup, const LocalizationStore& localization, const ItemIcons& icons,
             FileChooser& chooser);

  /// Shows the present texts and document.
  void refresh();

 protected:
  bool event(QEvent* event) override;
  void showEvent(QShowEvent* event) override;

 private:
  using Section = SettingsBackup::Section;

  void build(QVBoxLayout& column);
  void buildFile(QVBoxLayout& column);
  void connectButtons();
  QVBoxLayout* addPreview(QVBoxLayout& column, Section section);
  QLabel* addNotice(QVBoxLayout& column, Section section);
  void refreshTexts();
  void refreshNotices();
  void refreshPreview();
  void findCopies();
  void copyPath();
  void chooseExport();
  void chooseImport();
  void endPreview(bool applies);
  void choose(FileChoice choice, void (SettingsBackup::*use)(const std::string&));
  QString text(StringKey key) const;
  std::string plain(StringKey key) const { return std::string(localization_.text(key)); }

  SettingsBackup& backup_;
  const LocalizationStore& localization_;
  FileChooser& chooser_;
  QScrollArea* area_ = nullptr;
  QLabel* title_;
  QLabel* fileLabel_;
  QLineEdit* path_;
  QPushButton* copy_;
  QPushButton* openFolder_;
  std::array<QLabel*, 3> headings_;
  std::array<QLabel*, 3> notes_;
  QPushButton* export_;
  QPushButton* import_;
  KeptCopiesView* copies_;
  ImportPreview* preview_;
  /// By section; null where there is none.
  std::array<QLabel*, 4> notices_{};
  std::array<QVBoxLayout*, 4> previewPlaces_{};
};

}  // namespace rondora
