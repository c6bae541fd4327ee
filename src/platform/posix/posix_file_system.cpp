#include "platform/posix/posix_file_system.h"

#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <system_error>
#include <vector>

#include "platform/posix/durable_files.h"
#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

bool isLongerThanRead(const struct stat& status) {
  return status.st_size > static_cast<off_t>(PosixFileSystem::kMaxFileSize);
}

FileError readInto(std::string& bytes, const fs::path& path) {
  // O_NONBLOCK keeps open() from waiting for the writer of a pipe; regular files ignore it.
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0) return describe("cannot read", path, errno);
  if (!S_ISREG(status.st_mode)) return describe("cannot read", path, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  if (isLongerThanRead(status)) return describe("cannot read", path, EFBIG);

  bytes.reserve(static_cast<std::size_t>(status.st_size));
  std::vector<char> chunk(1 << 16);
  while (bytes.size() <= PosixFileSystem::kMaxFileSize) {
    const ssize_t length = ::read(file.get(), chunk.data(), chunk.size());
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) return describe("cannot read", path, errno);
    if (length == 0) return std::nullopt;
    bytes.append(chunk.data(), static_cast<std::size_t>(length));
  }
  return describe("cannot read", path, EFBIG);
}

}  // namespace

bool PosixFileSystem::exists(const fs::path& path) const {
  std::error_code error;
  return fs::exists(path, error);
}

std::optional<std::string> PosixFileSystem::read(const fs::path& path) const {
  std::string bytes;
  if (readInto(bytes, path)) return std::nullopt;
  return bytes;
}

FileError PosixFileSystem::readError(const fs::path& path) const {
  std::string bytes;
  return readInto(bytes, path);
}

bool PosixFileSystem::isTooLong(const fs::path& path) const {
  struct stat status {};
  return ::stat(path.c_str(), &status) == 0 && S_ISREG(status.st_mode) && isLongerThanRead(status);
}

std::vector<FolderFile> PosixFileSystem::filesIn(const fs::path& folder) const {
  std::vector<FolderFile> files;
  std::error_code error;
  for (auto entry = fs::directory_iterator(folder, error); !error && entry != fs::directory_iterator();
       entry.increment(error)) {
    std::error_code unknown;
    if (!entry->is_regular_file(unknown)) continue;
    const auto size = entry->file_size(unknown);
    if (!unknown) files.push_back({entry->path().filename().string(), size});
  }
  std::sort(files.begin(), files.end(), [](const auto& one, const auto& other) { return one.name < other.name; });
  return files;
}

FileError PosixFileSystem::createFolder(const fs::path& path) { return makeFolder(path); }

FileError PosixFileSystem::replaceDurably(const fs::path& path, std::string_view bytes) {
  return replaceFile(path, bytes);
}

FileError PosixFileSystem::replaceCached(const fs::path& path, std::string_view bytes) {
  return replaceCacheFile(path, bytes);
}

void PosixFileSystem::removeTemporaries(const fs::path& folder) { removeTemporariesIn(folder); }

FileError PosixFileSystem::copy(const fs::path& from, const fs::path& to) { return copyFileOrFolder(from, to); }

FileError PosixFileSystem::keepAs(const fs::path& path, const fs::path& name) { return linkOrRename(path, name); }

FileError PosixFileSystem::remove(const fs::path& file) {
  if (::unlink(file.c_str()) != 0) return describe("cannot remove", file, errno);
  return std::nullopt;
}

}  // namespace rondora::desktop
