#include "platform/posix/durable_files.h"

#include <sys/stat.h>

#include <array>
#include <cerrno>
#include <cstdio>
#include <random>
#include <system_error>
#include <vector>

#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

/// As fsync(), and where that leaves the data in the drive's own cache (macOS), past it.
int flush(int descriptor) {
#ifdef F_FULLFSYNC
  if (::fcntl(descriptor, F_FULLFSYNC) == 0) return 0;  // not on every file system
#endif
  return ::fsync(descriptor);
}

constexpr std::string_view kTemporaryPrefix = ".rondora-";
constexpr std::string_view kTemporarySuffix = ".tmp";
constexpr std::size_t kTemporaryDigits = 8;

std::string temporaryName(unsigned number) {
  std::array<char, kTemporaryDigits + 1> digits{};
  std::snprintf(digits.data(), digits.size(), "%08x", number);
  return std::string(kTemporaryPrefix) + digits.data() + std::string(kTemporarySuffix);
}

bool isTemporaryName(std::string_view name) {
  if (name.size() != kTemporaryPrefix.size() + kTemporaryDigits + kTemporarySuffix.size()) return false;
  const std::string_view digits = name.substr(kTemporaryPrefix.size(), kTemporaryDigits);
  return name.starts_with(kTemporaryPrefix) && name.ends_with(kTemporarySuffix) &&
         digits.find_first_not_of("0123456789abcdef") == digits.npos;
}

fs::path folderOf(const fs::path& path) { return path.has_parent_path() ? path.parent_path() : fs::path("."); }

/// Resolves the symbolic links at the end of `path`, including a dangling last one. Empty on a loop.
fs::path followLinks(fs::path path) {
  constexpr int kMaxLinks = 40;
  for (int i = 0; i < kMaxLinks; ++i) {
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) return path;
    const fs::path target = fs::read_symlink(path, error);
    if (error) return path;
    path = path.parent_path() / target;
  }
  return {};
}

FileError writeAll(int descriptor, std::string_view bytes, const fs::path& folder) {
  while (!bytes.empty()) {
    const ssize_t written = ::write(descriptor, bytes.data(), bytes.size());
    if (written < 0 && errno == EINTR) continue;
    if (written < 0) return describe("cannot write a file in", folder, errno);
    bytes.remove_prefix(static_cast<std::size_t>(written));
  }
  return std::nullopt;
}

FileError copyAll(int source, const fs::path& sourcePath, int target, const fs::path& folder) {
  std::vector<char> chunk(1 << 16);
  for (;;) {
    const ssize_t length = ::read(source, chunk.data(), chunk.size());
    if (length < 0 && errno == EINTR) continue;
    if (length < 0) return describe("cannot read", sourcePath, errno);
    if (length == 0) return std::nullopt;
    const std::string_view bytes(chunk.data(), static_cast<std::size_t>(length));
    if (auto failed = writeAll(target, bytes, folder)) return failed;
  }
}

/// Flushes a file's content or a folder's entries to disk.
FileError flush(const fs::path& path) {
  const FileDescriptor descriptor(::open(path.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!descriptor.isOpen()) return describe("cannot open", path, errno);
  // File systems that cannot flush a folder report EINVAL.
  if (flush(descriptor.get()) != 0 && errno != EINVAL) return describe("cannot flush", path, errno);
  return std::nullopt;
}

/// Whether a change is flushed to disk before it reports success.
enum class Durability { flushed, unflushed };

/// A new file or folder under a unique temporary name; removed unless it is moved into place.
class Temporary {
 public:
  explicit Temporary(fs::path folder, Durability durability = Durability::flushed)
      : folder_(std::move(folder)), durability_(durability) {
    choosePath();
  }
  ~Temporary() {
    std::error_code ignored;
    if (isThere_) fs::remove_all(path_, ignored);
  }
  Temporary(const Temporary&) = delete;
  Temporary& operator=(const Temporary&) = delete;

  FileError fill(std::string_view bytes) {
    return fillBy([&](int file) { return writeAll(file, bytes, folder_); });
  }

  FileError fillFrom(const fs::path& source) {
    std::error_code ignored;
    if (fs::is_directory(source, ignored)) return copyTree(source);
    const FileDescriptor from(::open(source.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
    if (!from.isOpen()) return describe("cannot open", source, errno);
    return fillBy([&](int file) { return copyAll(from.get(), source, file, folder_); });
  }

  FileError moveTo(const fs::path& target) {
    if (::rename(path_.c_str(), target.c_str()) != 0) return describe("cannot replace", target, errno);
    isThere_ = false;
    return durability_ == Durability::flushed ? flush(folder_) : std::nullopt;
  }

 private:
  template <typename Write>
  FileError fillBy(Write write) {
    FileDescriptor file = create();
    if (!file.isOpen()) return describe("cannot create a file in", folder_, errno);
    // The umask may have cleared bits. File systems without modes refuse this, which is harmless.
    ::fchmod(file.get(), 0600);
    if (auto failed = write(file.get())) return failed;
    if (durability_ == Durability::flushed && flush(file.get()) != 0)
      return describe("cannot flush a file in", folder_, errno);
    if (!file.close()) return describe("cannot close a file in", folder_, errno);
    return std::nullopt;
  }

  FileError copyTree(const fs::path& source) {
    std::error_code error;
    while (fs::exists(fs::symlink_status(path_, error))) choosePath();
    const fs::path followed = fs::canonical(source, error);
    isThere_ = true;
    if (!error) fs::copy(followed, path_, fs::copy_options::recursive | fs::copy_options::copy_symlinks, error);
    return error ? FileError(describe("cannot copy", source, error.value())) : std::nullopt;
  }

  void choosePath() { path_ = folder_ / temporaryName(std::random_device()()); }

  FileDescriptor create() {
    constexpr int kMaxAttempts = 100;
    for (int attempt = 1;; ++attempt) {
      FileDescriptor file(::open(path_.c_str(), O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, 0600));
      isThere_ = file.isOpen();
      if (isThere_ || errno != EEXIST || attempt == kMaxAttempts) return file;
      choosePath();
    }
  }

  fs::path folder_;
  fs::path path_;
  Durability durability_;
  bool isThere_ = false;
};

/// New folders get mode 0700 (XDG base directories 0.8).
FileError makeFolder(const fs::path& path, Durability durability) {
  std::error_code ignored;
  if (fs::is_directory(path, ignored)) return std::nullopt;
  if (path.has_relative_path()) {
    if (auto failed = makeFolder(folderOf(path), durability)) return failed;
  }
  if (::mkdir(path.c_str(), 0700) != 0) return describe("cannot create", path, errno == EEXIST ? ENOTDIR : errno);
  if (durability == Durability::flushed) flush(folderOf(path));
  return std::nullopt;
}

FileError replace(const fs::path& path, std::string_view bytes, Durability durability) {
  const fs::path target = followLinks(path);
  if (target.empty()) return describe("cannot replace", path, ELOOP);
  struct stat status {};
  if (::stat(target.c_str(), &status) == 0 && !S_ISREG(status.st_mode)) {
    return describe("cannot replace", target, S_ISDIR(status.st_mode) ? EISDIR : EINVAL);
  }
  Temporary temporary(folderOf(target), durability);
  if (auto failed = temporary.fill(bytes)) return failed;
  return temporary.moveTo(target);
}

std::vector<fs::path> entriesOf(const fs::path& folder) {
  std::error_code error;
  std::vector<fs::path> found;
  for (fs::directory_iterator entry(folder, error), end; !error && entry != end; entry.increment(error)) {
    found.push_back(entry->path());
  }
  return found;
}

void removeTemporary(const fs::path& path) {
  if (!isTemporaryName(path.filename().string())) return;
  std::error_code error;
  const fs::file_status status = fs::symlink_status(path, error);
  if (fs::is_regular_file(status) || fs::is_directory(status)) fs::remove_all(path, error);
}

}  // namespace

std::string describe(const char* what, const fs::path& path, int error) {
  return std::string(what) + " " + path.string() + ": " + std::generic_category().message(error);
}

/// New folders are on disk before their content.
FileError makeFolder(const fs::path& path) { return makeFolder(path, Durability::flushed); }

FileError replaceFile(const fs::path& path, std::string_view bytes) {
  return replace(path, bytes, Durability::flushed);
}

FileError replaceCacheFile(const fs::path& path, std::string_view bytes) {
  if (auto failed = makeFolder(folderOf(path), Durability::unflushed)) return failed;
  return replace(path, bytes, Durability::unflushed);
}

void removeTemporariesIn(const fs::path& folder) {
  for (const fs::path& path : entriesOf(folder)) {
    removeTemporary(path);
    std::error_code error;
    if (!fs::is_symlink(fs::symlink_status(path, error))) continue;
    // A linked file is replaced where it lies.
    for (const fs::path& other : entriesOf(fs::canonical(path, error).parent_path())) removeTemporary(other);
  }
}

FileError copyFileOrFolder(const fs::path& from, const fs::path& to) {
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(to, ignored))) return describe("cannot copy to", to, EEXIST);
  Temporary temporary(folderOf(to));
  if (auto failed = temporary.fillFrom(from)) return failed;
  return temporary.moveTo(to);
}

// The link is made to the file itself, since replacing `path` writes to the end of its links. A rename moves only the
// entry in the folder, so it also succeeds on a full disk and for a link to another file system.
FileError linkOrRename(const fs::path& path, const fs::path& name) {
  struct stat status {};
  if (::lstat(name.c_str(), &status) == 0) return describe("cannot rename to", name, EEXIST);
  const bool isKept = ::link(followLinks(path).c_str(), name.c_str()) == 0 || ::rename(path.c_str(), name.c_str()) == 0;
  if (!isKept) return describe("cannot rename", path, errno);
  if (::stat(name.c_str(), &status) == 0 && S_ISREG(status.st_mode)) ::chmod(name.c_str(), 0600);
  flush(folderOf(name));
  return std::nullopt;
}

}  // namespace rondora::desktop
