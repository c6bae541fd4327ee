#include "ui/qt/windows/qt_file_chooser.h"

#include <QApplication>
#include <QFileInfo>
#include <QStandardPaths>
#include <memory>
#include <utility>

#include "platform/qt/qt_text.h"

namespace rondora {
namespace {

/// "Pictures (*.png *.svg)".
QStringList nameFilters(const FileChoice& choice) {
  QStringList filters;
  for (const FileKind& kind : choice.kinds) {
    QStringList patterns;
    for (const std::string& pattern : kind.patterns) patterns << toQString(pattern);
    // A parenthesis in the name would begin the patterns.
    QString name = toQString(kind.name);
    filters << name.remove(QChar('(')).remove(QChar(')')) + " (" + patterns.join(' ') + ")";
  }
  return filters;
}

void describe(QFileDialog& dialog, const FileChoice& choice) {
  const bool saves = choice.purpose == FileChoice::Purpose::save;
  dialog.setAcceptMode(saves ? QFileDialog::AcceptSave : QFileDialog::AcceptOpen);
  dialog.setFileMode(saves ? QFileDialog::AnyFile : QFileDialog::ExistingFile);
  dialog.setWindowTitle(toQString(choice.title));
  if (!choice.kinds.empty()) dialog.setNameFilters(nameFilters(choice));
  if (saves) dialog.setDefaultSuffix(toQString(choice.extension));
  if (!choice.suggestedName.empty()) dialog.selectFile(toQString(choice.suggestedName));
}

/// Calls the completion once: when the dialog is finished, or destroyed with its window.
struct Answer {
  FileChooser::Completion completion;
  void operator()(std::optional<std::string> path) {
    if (auto done = std::exchange(completion, nullptr)) done(std::move(path));
  }
};

/// The dialog that has just closed may still count as active.
QWidget* ownerOfDialog() {
  QWidget* window = QApplication::activeWindow();
  return window != nullptr && !window->isVisible() ? window->parentWidget() : window;
}

}  // namespace

QtFileChooser::~QtFileChooser() {
  if (!dialog_) return;
  dialog_->disconnect();
  delete dialog_;
}

bool QtFileChooser::choose(const FileChoice& choice, Completion completion) {
  if (dialog_) {
    dialog_->raise();
    dialog_->activateWindow();
    return false;
  }
  if (lastFolder_.isEmpty()) lastFolder_ = QStandardPaths::writableLocation(QStandardPaths::HomeLocation);
  dialog_ = new QFileDialog(ownerOfDialog());
  dialog_->setAttribute(Qt::WA_DeleteOnClose);
  dialog_->setDirectory(choice.folder.empty() ? lastFolder_ : toQString(choice.folder));
  describe(*dialog_, choice);
  const auto answer = std::make_shared<Answer>(Answer{std::move(completion)});
  QObject::connect(dialog_, &QFileDialog::finished, dialog_, [this, answer](int result) {
    const QStringList files = dialog_->selectedFiles();
    const bool isChosen = result == QDialog::Accepted && !files.isEmpty();
    if (isChosen) lastFolder_ = QFileInfo(files.first()).absolutePath();
    // The completion may ask for the next file.
    dialog_.clear();
    (*answer)(isChosen ? std::optional(QFileInfo(files.first()).absoluteFilePath().toStdString()) : std::nullopt);
  });
  QObject::connect(dialog_, &QObject::destroyed, dialog_, [answer] { (*answer)(std::nullopt); });
  dialog_->open();
  return true;
}

}  // namespace rondora
