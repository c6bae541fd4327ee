#pragma once

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScrollArea>
#include <QVBoxLayout>
#include <array>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "settings/backup/settings_backup.h"
#include "ui/qt/settings/import_preview.h"
#include "ui/qt/settings/item_icons.h"
#include "ui/qt/settings/kept_copies_view.h"

namespace rondora {

/// The page of the settings with export, import and kept copies.
class BackupPage : public QWidget {
 public:
  /// Each opens a chooser and calls the answer once, later: with an absolute path, or with nothing when the user
  /// cancels. A chooser for saving asks before a file is replaced.
  struct FileQuestions {
    using Answer = std::function<void(std::optional<std::string> path)>;
    struct Kind {
      std::string name;
      std::vector<std::string> patterns;
    };
    std::function<void(const std::string& title, const std::vector<Kind>& kinds, Answer)> open;
    std::function<void(const std::string& title, const std::string& suggestedName, const std::vector<Kind>& kinds,
                       Answer)>
        save;
  };

  /// The references must outlive the object.
  BackupPage(SettingsBackup& backup, const LocalizationStore& localization, const ItemIcons& icons,
             FileQuestions questions);

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
  std::vector<FileQuestions::Kind> kinds() const;
  QString text(StringKey key) const;
  std::string plain(StringKey key) const { return std::string(localization_.text(key)); }

  SettingsBackup& backup_;
  const LocalizationStore& localization_;
  FileQuestions questions_;
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
