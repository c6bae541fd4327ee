#include "storage/config_manager.h"

#include <algorithm>
#include <string>
#include <utility>
#include <variant>
#include <vector>

#include "base/fnv.h"
#include "base/program_identity.h"
#include "storage/kept_file_name.h"
#include "storage/pie_configuration_migrator.h"

namespace rondora {
namespace {

using Cause = KeptDocument::Cause;

constexpr int kMaxBackupNumber = 99;

void ensureSingleMenu(std::vector<PieMenu>& menus, PieMenu menuTemplate) {
  const auto isOfKind = [kind = menuTemplate.kind](const PieMenu& menu) { return menu.kind == kind; };
  const auto first = std::find_if(menus.begin(), menus.end(), isOfKind);
  if (first == menus.end()) {
    menus.push_back(std::move(menuTemplate));
  } else {
    menus.erase(std::remove_if(first + 1, menus.end(), isOfKind), menus.end());
  }
}

}  // namespace

ConfigManager::ConfigManager(const Services& services)
    : services_(services), configURL_(configURL(services.files)), configuration_(load()) {
  writeLocal(configuration_.value());
}

std::filesystem::path ConfigManager::configURL(const FileSystem& files) {
  return files.applicationSupportFolder() / program_identity::kName / "config.json";
}

void ConfigManager::createFolder() {
  if (const FileError error = services_.files.createFolder(configURL_.parent_path())) {
    services_.log.error("failed to create config dir: " + *error);
  }
}

PieConfiguration ConfigManager::load() {
  createFolder();
  services_.files.removeTemporaries(configURL_.parent_path());
  PieConfiguration configuration = readOrDefault();
  normalize(configuration);
  return configuration;
}

ConfigManager::Fingerprint ConfigManager::fingerprint(const std::optional<std::string>& bytes) {
  if (!bytes) return std::nullopt;
  return std::pair(bytes->size(), fnv1a(*bytes));
}

PieConfiguration ConfigManager::readOrDefault() {
  const auto bytes = services_.files.read(configURL_);
  known_ = fingerprint(bytes);
  if (bytes) {
    auto decoded = decodeConfig(*bytes);
    if (auto* configuration = std::get_if<PieConfiguration>(&decoded)) return std::move(*configuration);
    backUpUnreadableConfig(std::get<CodingError>(decoded).description);
  } else if (services_.files.isTooLong(configURL_)) {
    const std::string problem = "document: too long";
    logUndecodable(problem);
    backUpUnreadableConfig(problem);
  } else if (services_.files.exists(configURL_)) {
    const FileError error = services_.files.readError(configURL_);
    keepUnreadable(error.value_or(std::string()), freeBackupPath(Cause::unreadable), error.value_or(std::string()));
  }
  return PieConfiguration::defaultConfig(services_.random);
}

void ConfigManager::normalize(PieConfiguration& configuration) const {
  ensureSingleMenu(configuration.menus, PieConfiguration::templateRunningAppsMenu(services_.random));
  ensureSingleMenu(configuration.menus, PieConfiguration::templateAppCommandsMenu(services_.random));
  PieConfigurationMigrator(services_.random).bringUpToDate(configuration);
}

void ConfigManager::save(PieConfiguration configuration) {
  normalize(configuration);
  configuration.lastModified = services_.clock.now();
  if (configuration == current()) return;
  configuration_.send(std::move(configuration));
  keepEditedConfig();
  // A subscriber may have saved too: write the newest.
  writeLocal(current());
  services_.notifications.post(kConfigurationDidChange);
}

FileError ConfigManager::exportConfiguration(const std::filesystem::path& path) {
  if (path.lexically_normal() == configURL_) {
    writeAgain();
    return writeProblem_;
  }
  const auto encoded = encodeConfiguration(current());
  if (const auto* error = std::get_if<CodingError>(&encoded)) return error->description;
  return services_.files.replaceDurably(path, std::get<std::string>(encoded));
}

ConfigManager::Candidate ConfigManager::candidate(const std::filesystem::path& path) const {
  const auto bytes = services_.files.read(path);
  if (!bytes) return ImportRefusal{.problem = services_.files.readError(path).value_or(std::string())};
  auto decoded = decodeConfiguration(*bytes, services_.random);
  if (const auto* error = std::get_if<CodingError>(&decoded)) return ImportRefusal{.problem = error->description};
  auto& configuration = std::get<PieConfiguration>(decoded);
  normalize(configuration);
  return std::move(configuration);
}

ConfigManager::Candidate ConfigManager::readImport(const std::filesystem::path& path) {
  Candidate found = candidate(path);
  if (const auto* refusal = std::get_if<ImportRefusal>(&found)) logUndecodable(refusal->problem);
  return found;
}

std::optional<ConfigManager::ImportRefusal> ConfigManager::importConfiguration(const std::filesystem::path& path) {
  Candidate found = readImport(path);
  if (auto* refusal = std::get_if<ImportRefusal>(&found)) return std::move(*refusal);
  save(std::move(std::get<PieConfiguration>(found)));
  return std::nullopt;
}

void ConfigManager::logUndecodable(const std::string& problem) {
  services_.log.error("decodeConfig failed: " + problem);
}

CodingResult<PieConfiguration> ConfigManager::decodeConfig(std::string_view bytes) {
  auto decoded = decodeConfiguration(bytes, services_.random);
  if (const auto* error = std::get_if<CodingError>(&decoded)) logUndecodable(error->description);
  return decoded;
}

void ConfigManager::writeLocal(const PieConfiguration& configuration) {
  writeProblem_ = keepUnkept();
  const auto encoded = encodeConfiguration(configuration);
  const auto* bytes = std::get_if<std::string>(&encoded);
  if (bytes == nullptr) writeProblem_ = std::get<CodingError>(encoded).description;
  const bool mayWrite = !writeProblem_;
  if (mayWrite) writeProblem_ = services_.files.replaceDurably(configURL_, *bytes);
  if (writeProblem_) services_.log.error("writeLocal failed: " + *writeProblem_);
  if (mayWrite) (writeProblem_ ? attempted_ : known_) = fingerprint(*bytes);
}

void ConfigManager::writeAgain() {
  createFolder();
  keepEditedConfig();
  writeLocal(current());
}

void ConfigManager::backUpUnreadableConfig(std::string problem) {
  const auto backup = freeBackupPath(Cause::unreadable);
  const FileError error = services_.files.copy(configURL_, backup);
  services_.log.error(error ? "config backup failed: " + *error
                            : "config unreadable, backup saved: " + backup.string());
  keepUnreadable(std::move(problem), backup, error);
}

void ConfigManager::keepUnreadable(std::string problem, const std::filesystem::path& file, const FileError& copyError) {
  hasReplacedUnreadable_ = true;
  keep({.cause = Cause::unreadable, .file = file.string(), .problem = std::move(problem)}, copyError);
}

/// Each edit is kept once, also where the save after it fails.
void ConfigManager::keepEditedConfig() {
  if (unkept_ || !services_.files.exists(configURL_)) return;
  const Fingerprint present = fingerprint(services_.files.read(configURL_));
  if (present == known_ || (attempted_ && present == attempted_)) return;
  const auto file = freeBackupPath(Cause::edited);
  const FileError copyError = services_.files.copy(configURL_, file);
  if (const FileError error = keep({.cause = Cause::edited, .file = file.string()}, copyError)) {
    return services_.log.error("config edited by hand, not kept: " + *error);
  }
  services_.log.error("config edited by hand, kept: " + file.string());
  known_ = present;
}

/// Tries again to keep the document that could not be kept. An error while it is still the only copy of its bytes.
FileError ConfigManager::keepUnkept() {
  if (!unkept_) return std::nullopt;
  if (!services_.files.exists(configURL_)) {
    unkept_.reset();
    known_.reset();
    return std::nullopt;
  }
  KeptDocument document = *unkept_;
  const bool isEdited = document.cause == Cause::edited;
  document.file = freeBackupPath(document.cause).string();
  const FileError copyError = services_.files.copy(configURL_, document.file);
  if (FileError error = tryToKeep(document, copyError)) return error;
  unkept_.reset();
  known_ = fingerprint(services_.files.read(configURL_));
  services_.log.error((isEdited ? "config edited by hand, kept: " : "config unreadable, backup saved: ") +
                      document.file);
  if (services_.onKept) services_.onKept(document);
  return std::nullopt;
}

/// Without a copy at `document.file`, the file itself gets that name.
FileError ConfigManager::tryToKeep(KeptDocument& document, const FileError& copyError) {
  document.keeping = copyError ? KeptDocument::Keeping::renamed : KeptDocument::Keeping::copied;
  return copyError ? services_.files.keepAs(configURL_, document.file) : std::nullopt;
}

/// A document that cannot be kept is not overwritten before it can.
FileError ConfigManager::keep(KeptDocument document, const FileError& copyError) {
  FileError error = tryToKeep(document, copyError);
  if (error) {
    document.keeping = KeptDocument::Keeping::failed;
    document.file = configURL_.string();
    document.keepingError = *error;
    unkept_ = document;
  }
  if (services_.onKept) services_.onKept(document);
  return error;
}

std::filesystem::path ConfigManager::freeBackupPath(KeptDocument::Cause cause) const {
  const std::filesystem::path folder = configURL_.parent_path();
  const KeptFileName name{cause, services_.clock.now()};
  auto path = folder / name.text();
  for (int number = 2; services_.files.exists(path) && number <= kMaxBackupNumber; ++number) {
    path = folder / name.text(number);
  }
  return path;
}

}  // namespace rondora
