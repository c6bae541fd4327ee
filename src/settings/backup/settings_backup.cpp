#include "settings/backup/settings_backup.h"

#include <algorithm>
#include <filesystem>
#include <utility>

#include "base/file_url.h"
#include "base/program_identity.h"
#include "storage/kept_file_name.h"

namespace rondora {
namespace {

std::string nameOf(const std::string& file) { return std::filesystem::path(file).filename().string(); }

}  // namespace

std::string SettingsBackup::suggestedName(std::string_view date) {
  return std::string(program_identity::kName).append(" ").append(date).append(".json");
}

void SettingsBackup::exportTo(const std::string& file) {
  services_.edits.save();
  const FileError error = services_.config.exportConfiguration(file);
  result_ = error ? Result{Section::exporting, true, StringKey::backupExportFailed, *error, {}}
                  : Result{Section::exporting, false, StringKey::backupExported, file, {}};
}

void SettingsBackup::read(const std::string& file, Section section) {
  cancel();
  result_.reset();
  auto candidate = services_.config.readImport(file);
  if (auto* refusal = std::get_if<ConfigManager::ImportRefusal>(&candidate)) {
    // The user chose no file where it is one of the copies.
    result_ = section == Section::copies
                  ? Result{section, true, StringKey::backupCopyProblem, std::move(refusal->problem), {}}
                  : Result{section, true, refusal->message, {}, std::move(refusal->problem)};
    if (section == Section::copies) findCopies();
  } else {
    pending_ = PendingImport{file, section, std::move(std::get<PieConfiguration>(candidate))};
  }
}

std::optional<SettingsBackup::Preview> SettingsBackup::preview() const {
  const auto* import = std::get_if<PendingImport>(&pending_);
  if (import == nullptr) return std::nullopt;
  DocumentChanges changes = documentChanges(services_.edits.document(), import->document, services_.words);
  const StringKey title = changes.empty() ? StringKey::backupNoChanges : StringKey::backupPreview;
  return Preview{import->section, words(title, nameOf(import->file)), std::move(changes)};
}

void SettingsBackup::apply() {
  auto* found = std::get_if<PendingImport>(&pending_);
  if (found == nullptr) return;
  const PendingImport import = std::move(*found);
  cancel();
  services_.edits.edit([&import](PieConfiguration& document) { document = import.document; });
  services_.edits.save();
  if (import.section == Section::copies) services_.kept.dismiss(import.file);
  const FileError& problem = services_.config.writeProblem();
  result_ = problem ? Result{import.section, true, StringKey::documentNotSaved, *problem, {}}
                    : Result{import.section, false, StringKey::backupApplied, {}, {}};
}

void SettingsBackup::findCopies() {
  copies_.clear();
  const std::filesystem::path folder = services_.config.configURL().parent_path();
  for (const FolderFile& file : services_.files.filesIn(folder)) {
    if (KeptFileName::parse(file.name)) copies_.push_back(found(folder / file.name, file.size));
  }
  std::stable_sort(copies_.begin(), copies_.end(),
                   [](const FoundCopy& one, const FoundCopy& other) { return one.time > other.time; });
}

SettingsBackup::FoundCopy SettingsBackup::found(const std::filesystem::path& file, std::uint64_t size) const {
  const auto name = KeptFileName::parse(file.filename().string()).value_or(KeptFileName());
  FoundCopy copy{.file = file.string(), .cause = name.cause, .time = name.time, .size = size};
  const auto candidate = services_.config.candidate(file);
  if (const auto* refusal = std::get_if<ConfigManager::ImportRefusal>(&candidate)) {
    copy.problem = refusal->problem;
    return copy;
  }
  const auto& menus = std::get<PieConfiguration>(candidate).menus;
  copy.menus = menus.size();
  for (const PieMenu& menu : menus) copy.items += menu.items.size();
  return copy;
}

std::vector<SettingsBackup::Copy> SettingsBackup::copies() const {
  std::vector<Copy> result;
  for (const FoundCopy& copy : copies_) {
    const bool isEdited = copy.cause == KeptDocument::Cause::edited;
    result.push_back({.file = copy.file,
                      .reason = words(isEdited ? StringKey::backupCopyEdited : StringKey::backupCopyUnreadable),
                      .time = copy.time,
                      .size = copy.size,
                      .isReadable = !copy.problem,
                      .contents = copy.problem ? words(StringKey::backupCopyProblem, *copy.problem)
                                               : services_.words.localization.text(StringKey::backupCopyHolds,
                                                                                   std::to_string(copy.menus),
                                                                                   std::to_string(copy.items))});
  }
  return result;
}

void SettingsBackup::askToRemove(const std::string& file) {
  result_.reset();
  pending_ = PendingRemoval{file};
}

std::optional<std::string> SettingsBackup::question() const {
  const auto* removal = std::get_if<PendingRemoval>(&pending_);
  if (removal == nullptr) return std::nullopt;
  return words(StringKey::backupDeleteQuestion, nameOf(removal->file));
}

void SettingsBackup::remove() {
  const auto* found = std::get_if<PendingRemoval>(&pending_);
  if (found == nullptr) return;
  const std::string file = found->file;
  cancel();
  if (const FileError error = services_.files.remove(file)) {
    result_ = Result{Section::copies, true, StringKey::backupDeleteFailed, *error, {}};
  } else {
    services_.kept.dismiss(file);
    result_ = Result{Section::copies, false, StringKey::backupDeleted, nameOf(file), {}};
  }
  findCopies();
}

void SettingsBackup::reveal(Section section) {
  result_.reset();
  const std::string folder = services_.config.configURL().parent_path().string();
  if (services_.workspace.openUrl(fileUrl(folder))) return;
  result_ = Result{section, true, StringKey::backupNothingOpensFolder, {}, {}};
}

std::optional<SettingsBackup::Notice> SettingsBackup::notice(Section section) const {
  if (!result_ || result_->section != section) return std::nullopt;
  std::string text = words(result_->message, result_->argument);
  if (!result_->problem.empty()) text += '\n' + result_->problem;
  return Notice{result_->isProblem, std::move(text)};
}

std::string SettingsBackup::words(StringKey key, std::string_view argument) const {
  return services_.words.localization.text(key, argument);
}

}  // namespace rondora
