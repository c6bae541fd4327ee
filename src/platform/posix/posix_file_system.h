#pragma once

#include <utility>

#include "platform/file_system.h"

namespace rondora::desktop {

/// Plain POSIX files in the user's folders, which the platform names.
class PosixFileSystem final : public FileSystem {
 public:
  struct Folders {
    std::filesystem::path applicationSupport;
    std::filesystem::path caches;
  };

  /// Both folders are absolute paths; they need not exist.
  explicit PosixFileSystem(Folders folders) : folders_(std::move(folders)) {}

  std::filesystem::path applicationSupportFolder() const override { return folders_.applicationSupport; }
  std::filesystem::path cachesFolder() const override { return folders_.caches; }

  bool exists(const std::filesystem::path& path) const override;
  std::optional<std::string> read(const std::filesystem::path& path) const override;
  FileError readError(const std::filesystem::path& path) const override;
  bool isTooLong(const std::filesystem::path& path) const override;
  std::vector<FolderFile> filesIn(const std::filesystem::path& folder) const override;
  FileError createFolder(const std::filesystem::path& path) override;
  FileError replaceDurably(const std::filesystem::path& path, std::string_view bytes) override;
  FileError replaceCached(const std::filesystem::path& path, std::string_view bytes) override;
  void removeTemporaries(const std::filesystem::path& folder) override;
  FileError copy(const std::filesystem::path& from, const std::filesystem::path& to) override;
  FileError keepAs(const std::filesystem::path& path, const std::filesystem::path& name) override;
  FileError remove(const std::filesystem::path& file) override;

 private:
  Folders folders_;
};

}  // namespace rondora::desktop
