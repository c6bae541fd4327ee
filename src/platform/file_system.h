#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace rondora {

/// Empty on success, else the system's error message.
using FileError = std::optional<std::string>;

/// A file directly in a folder.
struct FolderFile {
  std::string name;
  std::uint64_t size = 0;  // bytes
  friend bool operator==(const FolderFile&, const FolderFile&) = default;
};

/// The user's files. Main thread; calls block until the work is done.
class FileSystem {
 public:
  /// Size limit of `read` in bytes.
  static constexpr std::size_t kMaxFileSize = 64 << 20;

  virtual ~FileSystem() = default;

  /// The user's folder for application data; the program's own folder (`program_identity::kName`) is in it.
  virtual std::filesystem::path applicationSupportFolder() const = 0;
  virtual std::filesystem::path cachesFolder() const = 0;

  virtual bool exists(const std::filesystem::path& path) const = 0;
  /// The whole content; nothing when the file is missing, not a regular file, unreadable or too long.
  virtual std::optional<std::string> read(const std::filesystem::path& path) const = 0;
  /// The system's error that keeps `read` from returning the content; nothing when it can.
  virtual FileError readError(const std::filesystem::path& path) const = 0;
  /// True when `read` fails only because of the file's length.
  virtual bool isTooLong(const std::filesystem::path& path) const = 0;
  /// The regular files directly in the folder, by name; none when it cannot be read.
  virtual std::vector<FolderFile> filesIn(const std::filesystem::path& folder) const = 0;
  /// Creates the folder and its parents, accessible to the user only; succeeds when the folder exists.
  virtual FileError createFolder(const std::filesystem::path& path) = 0;
  /// Replaces the whole file atomically and durably: temporary file in the same folder, flush, rename, flush of the
  /// folder; mode 0600. Follows a symbolic link and replaces its target.
  virtual FileError replaceDurably(const std::filesystem::path& path, std::string_view bytes) = 0;
  /// Replaces the whole file of a cache atomically and creates its missing folders. Flushes nothing, so it does not
  /// wait for the disk: after a crash of the machine the file may be older, empty or missing. Otherwise as
  /// `replaceDurably`.
  virtual FileError replaceCached(const std::filesystem::path& path, std::string_view bytes) = 0;
  /// Removes the temporary files and copies that writes of a killed process left directly in the folder, or beside a
  /// file that a link in it leads to. No other process of the program may be writing there.
  virtual void removeTemporaries(const std::filesystem::path& folder) = 0;
  /// Copies a file or a folder tree. The copy appears atomically; a copied file is on disk when this returns, with mode
  /// 0600. Follows a symbolic link. Fails when the destination exists.
  virtual FileError copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
  /// Gives the file a second name in the same folder without reading or writing its content: a hard link, else it is
  /// renamed. Afterwards `replaceDurably(path)` leaves the content under `name`. Fails when `name` exists.
  virtual FileError keepAs(const std::filesystem::path& path, const std::filesystem::path& name) = 0;
  /// Removes a file, or a link without what it leads to. Fails for a folder.
  virtual FileError remove(const std::filesystem::path& file) = 0;
};

}  // namespace rondora
