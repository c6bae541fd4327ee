#pragma once

#include <map>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "doubles/value_at.h"
#include "platform/file_system.h"

namespace rondora {

/// Files in memory. An operation in `failures` fails with that text until it is erased.
class FakeFileSystem final : public FileSystem {
 public:
  using Path = std::filesystem::path;

  Path applicationSupportFolder() const override { return "/home/user/.config"; }
  Path cachesFolder() const override { return "/home/user/.cache"; }

  bool exists(const Path& path) const override { return files.contains(path) || folders.contains(path); }
  std::optional<std::string> read(const Path& path) const override {
    if (isTooLong(path) || injectedFailure("read")) return std::nullopt;
    return valueAt(files, path);
  }
  FileError readError(const Path& path) const override {
    if (isTooLong(path)) return "File too large";
    if (auto failure = injectedFailure("read")) return failure;
    return files.contains(path) ? FileError() : "No such file or directory";
  }
  bool isTooLong(const Path& path) const override { return tooLong.contains(path); }
  std::vector<FolderFile> filesIn(const Path& folder) const override {
    std::vector<FolderFile> found;
    for (const auto& [path, bytes] : files) {
      if (path.parent_path() == folder) found.push_back({path.filename().string(), bytes.size()});
    }
    return found;
  }
  FileError createFolder(const Path& path) override {
    if (auto failure = injectedFailure("create")) return failure;
    if (!folders.contains(path)) changes.push_back("create " + path.string());
    makeFolders(path);
    return std::nullopt;
  }
  FileError replaceDurably(const Path& path, std::string_view bytes) override {
    if (auto failure = injectedFailure("replace")) return failure;
    if (!folders.contains(path.parent_path())) return "No such file or directory";
    changes.push_back("replace " + path.string());
    files[path] = bytes;
    return std::nullopt;
  }
  FileError replaceCached(const Path& path, std::string_view bytes) override {
    if (auto failure = createFolder(path.parent_path())) return failure;
    if (auto failure = injectedFailure("replace")) return failure;
    changes.push_back("cache " + path.string());
    files[path] = bytes;
    return std::nullopt;
  }
  void removeTemporaries(const Path& folder) override { swept.push_back(folder); }
  FileError copy(const Path& from, const Path& to) override {
    if (auto failure = injectedFailure("copy")) return failure;
    if (!exists(from) || !folders.contains(to.parent_path())) return "No such file or directory";
    if (exists(to)) return "File exists";
    changes.push_back("copy " + from.string() + " " + to.string());
    const auto before = files;
    for (const auto& [path, bytes] : before) {
      if (path == from) put(to, bytes);
      if (path.string().starts_with(from.string() + "/")) put(to / path.lexically_relative(from), bytes);
    }
    return std::nullopt;
  }

  FileError keepAs(const Path& path, const Path& name) override {
    if (auto failure = injectedFailure("keep")) return failure;
    if (!exists(path) || exists(name)) return "No such file or directory";
    files[name] = files[path];
    return std::nullopt;
  }

  FileError remove(const Path& file) override {
    if (auto failure = injectedFailure("remove")) return failure;
    return files.erase(file) == 0 ? FileError("No such file or directory") : std::nullopt;
  }

  /// Adds a file and its folders.
  void put(const Path& path, std::string bytes) {
    makeFolders(path.parent_path());
    files[path] = std::move(bytes);
  }

  /// By operation: "read", "create" (a folder), "replace", "copy", "keep", "remove".
  std::map<std::string, std::string> failures;
  /// Existing files that are too long to read.
  std::set<Path> tooLong;
  /// Changes in order, such as "replace /home/user/.config/Rondora/config.json"; files of caches: "cache …".
  std::vector<std::string> changes;
  /// Folders whose temporary files were removed.
  std::vector<Path> swept;
  std::map<Path, std::string> files;
  std::set<Path> folders;

 private:
  FileError injectedFailure(const char* operation) const { return valueAt(failures, operation); }
  void makeFolders(Path path) {
    for (; path.has_relative_path(); path = path.parent_path()) folders.insert(path);
  }
};

}  // namespace rondora
