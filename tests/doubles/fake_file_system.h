#pragma once

#include <map>
#include <set>
#include <string>
#include <vector>

#include "platform/file_system.h"

namespace rondora {

/// Files in memory. An operation named in `failures` fails with its text until it is taken out again.
class FakeFileSystem final : public FileSystem {
 public:
  enum class Operation { read, createFolder, replaceDurably, copy };

  std::filesystem::path applicationSupportFolder() const override { return "/home/user/.config"; }
  std::filesystem::path cachesFolder() const override { return "/home/user/.cache"; }

  bool exists(const std::filesystem::path& path) const override;
  std::optional<std::string> read(const std::filesystem::path& path) const override;
  bool isTooLong(const std::filesystem::path& path) const override { return tooLong.contains(path); }
  FileError createFolder(const std::filesystem::path& path) override;
  FileError replaceDurably(const std::filesystem::path& path, std::string_view bytes) override;
  FileError copy(const std::filesystem::path& from, const std::filesystem::path& to) override;

  /// Puts a file there, with the folders it needs.
  void put(const std::filesystem::path& path, std::string bytes);
  void remove(const std::filesystem::path& path);

  std::map<Operation, std::string> failures;
  /// Files that are there, but too long to be read.
  std::set<std::filesystem::path> tooLong;
  /// What was changed, in order, such as "replace /home/user/.config/Rondora/config.json".
  std::vector<std::string> changes;
  std::map<std::filesystem::path, std::string> files;
  std::set<std::filesystem::path> folders;

 private:
  FileError injectedFailure(Operation operation) const;
};

}  // namespace rondora
