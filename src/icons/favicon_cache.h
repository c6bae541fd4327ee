#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "icons/favicon_lookup.h"
#include "platform/clock.h"
#include "platform/file_system.h"

namespace rondora {

/// The pictures of sites on disk, "<host>-<hash of the origin>.png", and a file "index" that says when each was asked
/// for and with what outcome. Anybody may delete any of it at any time: it is fetched again. Main thread.
class FaviconCache {
 public:
  FaviconCache(FileSystem& files, const Clock& clock);

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path fileOf(const WebAddress& site) const;
  bool has(const std::filesystem::path& file) const { return files_.exists(file); }

  /// Seconds until the picture is to be asked for, for the first time or again; 0: now.
  double secondsUntilDue(const std::filesystem::path& file);
  /// Keeps what a lookup for `file` came to; a picture that is there stays until there is another. True when a picture
  /// was written.
  bool note(const std::filesystem::path& file, const FaviconResult& result);

 private:
  struct Record {
    WallTime askedAt = 0;
    FaviconOutcome outcome = FaviconOutcome::unreachable;
    int failures = 0;  // unreachable that many times in a row
  };

  void load();
  void write();
  static double lifetime(const Record& record);

  FileSystem& files_;
  const Clock& clock_;
  std::filesystem::path folder_;
  std::map<std::string, Record, std::less<>> records_;  // by file name
  bool isLoaded_ = false;
};

}  // namespace rondora
