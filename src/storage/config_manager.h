#pragma once

#include <cstdint>
#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <utility>
#include <variant>

#include "base/notification_center.h"
#include "base/observable.h"
#include "localization/string_key.h"
#include "model/pie_configuration.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/log.h"
#include "platform/random_source.h"
#include "storage/configuration_json.h"
#include "storage/kept_documents.h"

namespace rondora {

/// Owns the current configuration: loads and repairs it when created, writes every change back. Main thread.
class ConfigManager {
 public:
  /// Posted after a save has been written.
  static constexpr std::string_view kConfigurationDidChange = "Rondora.configurationDidChange";

  struct Services {
    FileSystem& files;
    Clock& clock;
    Log& log;
    RandomSource& random;
    NotificationCenter& notifications;
    /// Called with each document in whose place the manager writes another, by the constructor too. May be empty.
    std::function<void(const KeptDocument&)> onKept = {};
  };

  struct ImportRefusal {
    StringKey message = StringKey::importRefused;
    /// What is wrong with the file, in English: "menus[2].hotkey.keyCode: missing", or the system's message.
    std::string problem = {};
  };

  /// Loads the document and writes it back at once. An unreadable one is backed up and replaced by the first-run
  /// document; where it cannot be copied, the file itself becomes the back-up, and where that fails too, it stays and
  /// nothing is written. Failures are logged and leave a usable configuration in memory.
  explicit ConfigManager(const Services& services);

  /// The file of the document.
  static std::filesystem::path configURL(const FileSystem& files);
  const std::filesystem::path& configURL() const { return configURL_; }
  const PieConfiguration& current() const { return configuration_.value(); }
  /// For subscribing: only `save` changes the document.
  const CurrentValue<PieConfiguration>& configuration() const { return configuration_; }

  /// Repairs and stamps a copy, publishes, writes and notifies; observers have run when it returns. A file that the
  /// program neither read nor wrote last is kept before it is replaced.
  void save(PieConfiguration configuration);

  /// Why the current document is not on disk, in English; nothing when it is.
  const FileError& writeProblem() const { return writeProblem_; }
  /// Writes the current document again, after a failed save.
  void writeAgain();

  /// Writes the current document to a file of the user's choice. The document's own file is written as by a save.
  FileError exportConfiguration(const std::filesystem::path& path);
  using Candidate = std::variant<PieConfiguration, ImportRefusal>;
  /// The document in the file as a save would store it. Saves and logs nothing.
  Candidate candidate(const std::filesystem::path& path) const;
  /// As `candidate`, for an import: logs why the file holds no document.
  Candidate readImport(const std::filesystem::path& path);
  /// Saves the document in the file as the current one, unless the file holds none.
  std::optional<ImportRefusal> importConfiguration(const std::filesystem::path& path);
  /// The document that was found at the start could not be read, so the first-run document has replaced it.
  bool hasReplacedUnreadable() const { return hasReplacedUnreadable_; }

 private:
  /// Length and hash of a file's content; nothing for a file that is missing or cannot be read.
  using Fingerprint = std::optional<std::pair<std::size_t, std::uint64_t>>;

  static Fingerprint fingerprint(const std::optional<std::string>& bytes);
  void createFolder();
  PieConfiguration load();
  PieConfiguration readOrDefault();
  void normalize(PieConfiguration& configuration) const;
  CodingResult<PieConfiguration> decodeConfig(std::string_view bytes);
  void logUndecodable(const std::string& problem);
  void writeLocal(const PieConfiguration& configuration);
  void backUpUnreadableConfig(std::string problem);
  void keepUnreadable(std::string problem, const std::filesystem::path& file, const FileError& copyError);
  void keepEditedConfig();
  FileError keep(KeptDocument document, const FileError& copyError);
  FileError tryToKeep(KeptDocument& document, const FileError& copyError);
  FileError keepUnkept();
  std::filesystem::path freeBackupPath(KeptDocument::Cause cause) const;

  Services services_;
  bool hasReplacedUnreadable_ = false;
  /// The document's file as it was last read or written.
  Fingerprint known_;
  /// As a write that reported an error may have left it.
  Fingerprint attempted_;
  FileError writeProblem_;
  /// The document's file holds it, and nothing else does.
  std::optional<KeptDocument> unkept_;
  std::filesystem::path configURL_;
  CurrentValue<PieConfiguration> configuration_;
};

}  // namespace rondora
