#pragma once

#include <filesystem>
#include <map>
#include <string>
#include <string_view>

#include "icons/favicon_lookup.h"
#include "platform/clock.h"
#include "platform/file_system.h"
#include "platform/log.h"

namespace rondora {

/// On-disk cache of favicons: files "<host>-<hash of the origin>.png" and a file "index" with the time and outcome of
/// each fetch. Any of them may be deleted at any time and is fetched again. Main thread.
class FaviconCache {
 public:
  FaviconCache(FileSystem& files, const Clock& clock, Log& log);

  const std::filesystem::path& folder() const { return folder_; }
  std::filesystem::path fileOf(const WebAddress& site) const;
  bool has(const std::filesystem::path& file) const { return files_.exists(file); }

  /// Seconds until the picture is due to be fetched, for the first time or again; 0: now.
  double secondsUntilDue(const std::filesystem::path& file);
  /// Records the result of a lookup for `file`; a cached picture stays until a new one replaces it. True when a picture
  /// was written. The index is written by `save`.
  bool note(const std::filesystem::path& file, const FaviconResult& result);
  /// Writes the index if it has changed; after a failure it counts as changed.
  void save();
  /// Why the last picture or the index is not on disk, as the system's message; nothing when both are.
  const FileError& problem() const { return pictureProblem_ ? pictureProblem_ : indexProblem_; }

 private:
  struct Record {
    WallTime fetchedAt = 0;
    FaviconOutcome outcome = FaviconOutcome::unreachable;
    int failures = 0;  // consecutive unreachable results
  };

  void load();
  FileError writeIndex();
  void noteProblem(FileError& last, FileError problem);
  static double lifetime(const Record& record);

  FileSystem& files_;
  const Clock& clock_;
  Log& log_;
  std::filesystem::path folder_;
  std::map<std::string, Record, std::less<>> records_;  // by file name
  bool isLoaded_ = false;
  bool isIndexOutdated_ = false;
  FileError pictureProblem_;
  FileError indexProblem_;
};

}  // namespace rondora
