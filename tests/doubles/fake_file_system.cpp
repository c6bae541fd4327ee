#include "doubles/fake_file_system.h"

namespace rondora {
namespace {

bool isWithin(const std::filesystem::path& path, const std::filesystem::path& folder) {
  return path.string().starts_with(folder.string() + "/");
}

}  // namespace

FileError FakeFileSystem::injectedFailure(Operation operation) const {
  const auto found = failures.find(operation);
  return found == failures.end() ? FileError() : FileError(found->second);
}

bool FakeFileSystem::exists(const std::filesystem::path& path) const {
  return files.contains(path) || folders.contains(path);
}

std::optional<std::string> FakeFileSystem::read(const std::filesystem::path& path) const {
  const auto found = files.find(path);
  if (found == files.end() || isTooLong(path) || injectedFailure(Operation::read)) return std::nullopt;
  return found->second;
}

FileError FakeFileSystem::createFolder(const std::filesystem::path& path) {
  if (auto failure = injectedFailure(Operation::createFolder)) return failure;
  for (auto folder = path; folder.has_relative_path(); folder = folder.parent_path()) {
    if (files.contains(folder)) return "Not a directory";
  }
  if (!folders.contains(path)) changes.push_back("create " + path.string());
  for (auto folder = path; folder.has_relative_path(); folder = folder.parent_path()) folders.insert(folder);
  return std::nullopt;
}

FileError FakeFileSystem::replaceDurably(const std::filesystem::path& path, std::string_view bytes) {
  if (auto failure = injectedFailure(Operation::replaceDurably)) return failure;
  if (!folders.contains(path.parent_path())) return "No such file or directory";
  if (folders.contains(path)) return "Is a directory";
  changes.push_back("replace " + path.string());
  files[path] = bytes;
  return std::nullopt;
}

FileError FakeFileSystem::copy(const std::filesystem::path& from, const std::filesystem::path& to) {
  if (auto failure = injectedFailure(Operation::copy)) return failure;
  if (!exists(from) || !folders.contains(to.parent_path())) return "No such file or directory";
  if (exists(to)) return "File exists";
  changes.push_back("copy " + from.string() + " " + to.string());
  if (files.contains(from)) {
    files[to] = files[from];
    return std::nullopt;
  }
  const auto moved = [&](const std::filesystem::path& path) { return to / path.lexically_relative(from); };
  const auto oldFolders = folders;
  const auto oldFiles = files;
  folders.insert(to);
  for (const auto& folder : oldFolders) {
    if (isWithin(folder, from)) folders.insert(moved(folder));
  }
  for (const auto& [path, bytes] : oldFiles) {
    if (isWithin(path, from)) files[moved(path)] = bytes;
  }
  return std::nullopt;
}

void FakeFileSystem::put(const std::filesystem::path& path, std::string bytes) {
  for (auto folder = path.parent_path(); folder.has_relative_path(); folder = folder.parent_path()) {
    folders.insert(folder);
  }
  files[path] = std::move(bytes);
}

void FakeFileSystem::remove(const std::filesystem::path& path) {
  files.erase(path);
  folders.erase(path);
  std::erase_if(files, [&](const auto& entry) { return isWithin(entry.first, path); });
  std::erase_if(folders, [&](const auto& folder) { return isWithin(folder, path); });
}

}  // namespace rondora
