#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <variant>
#include <vector>

#include "platform/file_system.h"
#include "platform/workspace.h"
#include "settings/backup/document_changes.h"
#include "settings/editing/edit_history.h"
#include "storage/config_manager.h"
#include "storage/kept_documents.h"

namespace rondora {

/// The backup page: exports the settings, takes them from a file, and restores documents that were kept. What a file
/// would change is shown first; nothing changes before `apply`. Main thread.
class SettingsBackup {
 public:
  /// The references must outlive the object.
  struct Services {
    ConfigManager& config;
    EditHistory& edits;
    KeptDocuments& kept;
    FileSystem& files;
    Workspace& workspace;
    ChangeWords words;
  };

  enum class Section { file, exporting, importing, copies };

  /// What became of the latest command.
  struct Notice {
    bool isProblem = false;
    std::string text;
  };

  struct Preview {
    /// Where the user asked for it: `importing` or `copies`.
    Section section = Section::importing;
    std::string title;
    /// Empty where the file holds what the user already has.
    DocumentChanges changes;
  };

  /// A kept document in the document's folder.
  struct Copy {
    std::string file;
    /// Why it was kept.
    std::string reason;
    WallTime time = 0;
    std::uint64_t size = 0;  // bytes
    bool isReadable = false;
    /// What it holds, or why it cannot be read.
    std::string contents;
  };

  explicit SettingsBackup(const Services& services) : services_(services) {}

  std::string documentPath() const { return services_.config.configURL().string(); }
  void openFolder() { reveal(Section::file); }

  /// `date` as 2026-11-23, in the user's time zone.
  static std::string suggestedName(std::string_view date);
  /// Writes the settings, pending edits included, to exactly this file. Who chose it has agreed to replace it.
  void exportTo(const std::string& file);

  /// Shows what the file would change, or says why it is no such file.
  void readImport(const std::string& file) { read(file, Section::importing); }
  void readCopy(const std::string& file) { read(file, Section::copies); }
  /// Compared with the document as it is now.
  std::optional<Preview> preview() const;
  /// Takes the previewed document over, as one step that can be undone, and saves it.
  void apply();

  /// Newest first, as found by `findCopies`.
  std::vector<Copy> copies() const;
  /// Reads the folder, and each copy in it.
  void findCopies();
  void revealCopies() { reveal(Section::copies); }
  /// Asks; nothing is deleted before `remove`.
  void askToRemove(const std::string& file);
  /// The question, while it is asked.
  std::optional<std::string> question() const;
  void remove();

  /// Ends a preview or a question without a change.
  void cancel() { pending_ = {}; }
  /// Of the latest command, if it belongs to this section.
  std::optional<Notice> notice(Section section) const;

 private:
  struct FoundCopy {
    std::string file;
    KeptDocument::Cause cause = KeptDocument::Cause::unreadable;
    WallTime time = 0;
    std::uint64_t size = 0;
    std::size_t menus = 0;
    std::size_t items = 0;
    /// In English.
    std::optional<std::string> problem = {};
  };
  struct PendingImport {
    std::string file;
    Section section = Section::importing;
    PieConfiguration document;
  };
  struct PendingRemoval {
    std::string file;
  };
  /// Kept as keys: the user may choose another language.
  struct Result {
    Section section = Section::exporting;
    bool isProblem = false;
    StringKey message = StringKey::importRefused;
    std::string argument;
    std::string problem;
  };

  void read(const std::string& file, Section section);
  void reveal(Section section);
  FoundCopy found(const std::filesystem::path& file, std::uint64_t size) const;
  std::string words(StringKey key, std::string_view argument = {}) const;

  Services services_;
  std::vector<FoundCopy> copies_;
  std::variant<std::monostate, PendingImport, PendingRemoval> pending_;
  std::optional<Result> result_;
};

}  // namespace rondora
