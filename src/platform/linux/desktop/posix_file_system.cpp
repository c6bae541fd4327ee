#include "platform/linux/desktop/posix_file_system.h"

#include <pwd.h>
#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>
#include <vector>

#include "platform/linux/desktop/file_descriptor.h"

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

std::string describe(const char* what, const fs::path& path, int error) {
  return std::string(what) + " " + path.string() + ": " + std::generic_category().message(error);
}

fs::path homeFolder(const ProcessEnvironment& environment) {
  if (const auto home = environment.variable("HOME"); home && fs::path(*home).is_absolute()) return *home;
  std::array<char, 16384> text{};
  passwd entry{};
  passwd* found = nullptr;
  if (getpwuid_r(getuid(), &entry, text.data(), text.size(), &found) == 0 && found) return found->pw_dir;
  return "/";
}

/// Paths that are not absolute are to be ignored (XDG base directories 0.8).
fs::path userFolder(const ProcessEnvironment& environment, std::string_view variable, const char* underHome) {
  if (const auto value = environment.variable(variable); value && fs::path(*value).is_absolute()) return *value;
  return homeFolder(environment) / underHome;
}

/// Follows the symbolic links at the end of `path`, also where the last one leads to nothing yet. Empty on a loop.
fs::path followLinks(fs::path path) {
  constexpr int kMostLinks = 40;
  for (int i = 0; i < kMostLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
    const fs::path target = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / target;
  }
  return {};
}

FileError writeAll(int descriptor, std::string_view bytes, const fs::path& path) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return describe("cannot write", path, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

/// A new file that nobody else has, removed again unless it is moved into place.
class TemporaryFile {
 public:
  explicit TemporaryFile(const fs::path& folder) {
    std::random_device random;
    for (int attempt = 0; attempt < 100; ++attempt) {
      std::array<char, 32> name{};
      std::snprintf(name.data(), name.size(), ".rondora-%08x.tmp", random());
      path_ = folder / name.data();
      file_ = FileDescriptor(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
      if (file_.isOpen() || errno != EEXIST) break;
    }
    error_ = file_.isOpen() ? 0 : errno;
    isThere_ = file_.isOpen();
  }
  ~TemporaryFile() {
    if (isThere_) ::unlink(path_.c_str());
  }
  TemporaryFile(const TemporaryFile&) = delete;
  TemporaryFile& operator=(const TemporaryFile&) = delete;

  FileError fill(std::string_view bytes) {
    if (error_ != 0) return describe("cannot create", path_, error_);
    if (::fchmod(file_.get(), 0600) != 0) return describe("cannot set the mode of", path_, errno);
    if (auto failed = writeAll(file_.get(), bytes, path_)) return failed;
    if (::fsync(file_.get()) != 0) return describe("cannot flush", path_, errno);
    if (!file_.close()) return describe("cannot close", path_, errno);
    return std::nullopt;
  }

  FileError moveTo(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return describe("cannot replace", target, errno);
    isThere_ = false;
    return std::nullopt;
  }

 private:
  fs::path path_;
  FileDescriptor file_;
  int error_ = 0;
  bool isThere_ = false;
};

FileError flushFolder(const fs::path& folder) {
  const FileDescriptor descriptor(::open(folder.c_str(), O_RDONLY | O_DIRECTORY | O_CLOEXEC));
  if (!descriptor.isOpen()) return describe("cannot open", folder, errno);
  // Some file systems cannot flush a folder and say so with EINVAL; they have nothing to flush.
  if (::fsync(descriptor.get()) != 0 && errno != EINVAL) return describe("cannot flush", folder, errno);
  return std::nullopt;
}

}  // namespace

PosixFileSystem::PosixFileSystem(const ProcessEnvironment& environment)
    : applicationSupportFolder_(userFolder(environment, "XDG_CONFIG_HOME", ".config")),
      cachesFolder_(userFolder(environment, "XDG_CACHE_HOME", ".cache")) {}

bool PosixFileSystem::exists(const fs::path& path) const {
  std::error_code error;
  return fs::exists(path, error);
}

std::optional<std::string> PosixFileSystem::read(const fs::path& path) const {
  // Opening a pipe without a writer would wait for one, hence O_NONBLOCK; regular files do not know it.
  const FileDescriptor file(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  struct stat status {};
  if (!file.isOpen() || ::fstat(file.get(), &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  if (status.st_size > static_cast<off_t>(kLongestFile)) return std::nullopt;

  std::string bytes;
  bytes.reserve(static_cast<std::size_t>(status.st_size));
  std::vector<char> chunk(1 << 16);
  while (bytes.size() <= kLongestFile) {
    const ssize_t length = ::read(file.get(), chunk.data(), chunk.size());
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) return std::nullopt;
    if (length == 0) return bytes;
    bytes.append(chunk.data(), static_cast<std::size_t>(length));
  }
  return std::nullopt;
}

FileError PosixFileSystem::createFolder(const fs::path& path) {
  std::error_code error;
  fs::create_directories(path, error);
  // A link to a folder counts as one, which create_directories does not see in every case.
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) return std::nullopt;
  return describe("cannot create", path, error ? error.value() : ENOTDIR);
}

FileError PosixFileSystem::replaceDurably(const fs::path& path, std::string_view bytes) {
  const fs::path target = followLinks(path);
  if (target.empty()) return describe("cannot replace", path, ELOOP);
  struct stat status {};
  if (::stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return describe("cannot replace", target, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  }
  const fs::path folder = target.has_parent_path() ? target.parent_path() : fs::path(".");
  TemporaryFile temporary(folder);
  if (auto failed = temporary.fill(bytes)) return failed;
  if (auto failed = temporary.moveTo(target)) return failed;
  return flushFolder(folder);
}

FileError PosixFileSystem::copy(const fs::path& from, const fs::path& to) {
  std::error_code error;
  if (fs::exists(fs::symlink_status(to, error))) return describe("cannot copy to", to, EEXIST);
  error.clear();
  fs::copy(from, to, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
  if (!error) return std::nullopt;
  std::error_code ignored;
  fs::remove_all(to, ignored);
  return describe("cannot copy", from, error.value());
}

}  // namespace rondora::desktop
