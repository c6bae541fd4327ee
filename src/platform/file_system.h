#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// Nothing when the operation succeeded, else the system's description of what went wrong.
using FileError = std::optional<std::string>;

/// Files of the user. Main thread; every call returns when the work is done.
class FileSystem {
 public:
  virtual ~FileSystem() = default;

  /// The user's folder for application data; the program's own folder "Rondora" lies in it.
  virtual std::filesystem::path applicationSupportFolder() const = 0;
  virtual std::filesystem::path cachesFolder() const = 0;

  virtual bool exists(const std::filesystem::path& path) const = 0;
  /// Nothing when the file is missing, is no regular file, cannot be read as a whole or is too long.
  virtual std::optional<std::string> read(const std::filesystem::path& path) const = 0;
  /// Whether `read` refuses the file for its length alone.
  virtual bool isTooLong(const std::filesystem::path& path) const = 0;
  /// Creates the folder with its parents, for the user alone; an existing folder is a success.
  virtual FileError createFolder(const std::filesystem::path& path) = 0;
  /// Replaces the whole file so that at every moment the old or the new content is on disk: temporary file in the
  /// same folder, flushed, renamed, folder flushed; mode 0600. A symbolic link stays one, its target is replaced.
  virtual FileError replaceDurably(const std::filesystem::path& path, std::string_view bytes) = 0;
  /// Copies a file, or a folder with all it holds; the copy appears whole or not at all, and a file's is on disk when
  /// this returns. A symbolic link is followed. An existing destination is an error.
  virtual FileError copy(const std::filesystem::path& from, const std::filesystem::path& to) = 0;
};

}  // namespace rondora
