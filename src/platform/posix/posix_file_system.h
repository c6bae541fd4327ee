#pragma once

#include "platform/file_system.h"
#include "platform/process_environment.h"

namespace rondora::desktop {

/// POSIX files, in the folders of the XDG base directory specification.
class PosixFileSystem final : public FileSystem {
 public:
  /// Size limit of `read` in bytes.
  static constexpr std::size_t kMaxFileSize = 64 << 20;

  /// Reads XDG_CONFIG_HOME, XDG_CACHE_HOME and HOME once.
  explicit PosixFileSystem(const ProcessEnvironment& environment);

  std::filesystem::path applicationSupportFolder() const override { return applicationSupportFolder_; }
  std::filesystem::path cachesFolder() const override { return cachesFolder_; }

  bool exists(const std::filesystem::path& path) const override;
  std::optional<std::string> read(const std::filesystem::path& path) const override;
  bool isTooLong(const std::filesystem::path& path) const override;
  FileError createFolder(const std::filesystem::path& path) override;
  FileError replaceDurably(const std::filesystem::path& path, std::string_view bytes) override;
  FileError copy(const std::filesystem::path& from, const std::filesystem::path& to) override;

 private:
  std::filesystem::path applicationSupportFolder_;
  std::filesystem::path cachesFolder_;
};

}  // namespace rondora::desktop
