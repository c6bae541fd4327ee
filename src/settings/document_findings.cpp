#include "settings/document_findings.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/file_url.h"

namespace rondora {
namespace {

using Keeping = KeptDocument::Keeping;

bool isEdited(const KeptDocument& document) { return document.cause == KeptDocument::Cause::edited; }

void addLine(std::string& text, std::string_view line) {
  if (line.empty()) return;
  if (!text.empty()) text += '\n';
  text += line;
}

}  // namespace

SessionFindings DocumentFindings::findings() const {
  SessionFindings result;
  for (const KeptDocument& document : services_.kept.documents()) result.push_back(finding(document));
  if (auto icons = sitePicturesNotSaved()) result.push_back(std::move(*icons));
  if (auto unsaved = notSaved()) result.push_back(std::move(*unsaved));
  std::reverse(result.begin(), result.end());
  return result;
}

std::optional<SessionFinding> DocumentFindings::notSaved() const {
  const auto& document = services_.config.writeProblem();
  const auto problem = document ? document : services_.defaults.problem();
  if (!problem) return std::nullopt;
  const LocalizationStore& localization = services_.localization;
  SessionFinding finding{.works = false,
                         .statement = localization.text(StringKey::documentNotSaved, *problem),
                         .remedy = std::string(localization.text(StringKey::documentNotSavedRemedy))};
  finding.buttons.push_back({FindingCommand::saveAgain, std::string(localization.text(StringKey::findingSaveAgain))});
  return finding;
}

std::optional<SessionFinding> DocumentFindings::sitePicturesNotSaved() const {
  const FileError problem = services_.sitePictureProblem();
  if (!problem) return std::nullopt;
  return SessionFinding{.works = false,
                        .statement = services_.localization.text(StringKey::sitePicturesNotSaved, *problem),
                        .remedy = std::string(services_.localization.text(StringKey::sitePicturesNotSavedRemedy))};
}

SessionFinding DocumentFindings::finding(const KeptDocument& document) const {
  const LocalizationStore& localization = services_.localization;
  return {.works = false,
          .statement = isEdited(document) ? std::string(localization.text(StringKey::documentEdited))
                                          : localization.text(StringKey::documentUnreadable, document.problem),
          .remedy = remedy(document),
          .buttons = buttons(document)};
}

std::string DocumentFindings::remedy(const KeptDocument& document) const {
  const LocalizationStore& localization = services_.localization;
  if (document.keeping == Keeping::failed) {
    return localization.text(StringKey::documentNotKept, document.keepingError, document.file);
  }
  const bool isCopy = document.keeping == Keeping::copied;
  std::string text = localization.text(isCopy ? StringKey::documentKept : StringKey::documentKeptItself, document.file);
  addLine(text, localization.text(isEdited(document) ? StringKey::documentImportHint : StringKey::documentRestoreHint));
  if (failure_ && failure_->file == document.file) {
    addLine(text, localization.text(failure_->message));
    addLine(text, failure_->problem);
  }
  return text;
}

std::vector<FindingButton> DocumentFindings::buttons(const KeptDocument& document) const {
  std::vector<FindingButton> result;
  if (document.keeping != Keeping::failed) {
    result.push_back(button(FindingCommand::openFile, StringKey::findingOpenFile, document));
    const StringKey title = isEdited(document) ? StringKey::findingImport : StringKey::findingRestore;
    result.push_back(button(FindingCommand::importFile, title, document));
  }
  result.push_back(button(FindingCommand::dismiss, StringKey::findingDismiss, document));
  return result;
}

FindingButton DocumentFindings::button(FindingCommand command, StringKey title, const KeptDocument& document) const {
  return {command, std::string(services_.localization.text(title)), document.file};
}

void DocumentFindings::press(const FindingButton& button) {
  failure_.reset();
  switch (button.command) {
    case FindingCommand::openFile:
      return open(button.file);
    case FindingCommand::importFile:
      return import(button.file);
    case FindingCommand::dismiss:
      return services_.kept.dismiss(button.file);
    case FindingCommand::saveAgain:
      services_.config.writeAgain();
      return services_.kept.store();
    case FindingCommand::requestAccessibility:
    case FindingCommand::requestInputMonitoring:
      return;  // of the permissions
  }
}

/// Where no application opens such files, the folder is shown.
void DocumentFindings::open(const std::string& file) {
  if (services_.workspace.openUrl(fileUrl(file))) return;
  const std::string folder = std::filesystem::path(file).parent_path().string();
  if (!services_.workspace.openUrl(fileUrl(folder))) failure_ = Failure{file, StringKey::documentNothingOpensIt, {}};
}

void DocumentFindings::import(const std::string& file) {
  const auto refusal = services_.config.importConfiguration(file);
  if (!refusal) return services_.kept.dismiss(file);
  failure_ = Failure{file, refusal->message, refusal->problem};
}

}  // namespace rondora
