#pragma once

#include <cstddef>
#include <vector>

#include "commands/application_snapshot.h"
#include "platform/clock.h"
#include "platform/workspace.h"

namespace rondora {

/// The latest snapshots of running applications, bounded in number, size and age. Main thread.
class SnapshotCache {
 public:
  static constexpr std::size_t kMaxApplications = 16;
  static constexpr std::size_t kMaxBytes = 1 << 20;
  /// Seconds. Each opening reads the application again, so an old snapshot shows at most once.
  static constexpr double kMaxAge = 600;

  /// The clock must outlive the cache.
  explicit SnapshotCache(const Clock& clock) : clock_(clock) {}

  /// Null when there is none of the application's current window, or only an old one. Valid until the cache changes.
  const ApplicationSnapshot* find(const RunningApplication& application) const;
  /// Seconds since the application was read; it is in the cache.
  double age(const RunningApplication& application) const;
  /// True when the snapshot differs from the one before.
  bool store(const RunningApplication& application, ApplicationSnapshot snapshot);
  void drop(const RunningApplication& application);
  /// Drops the applications that are not among these.
  void retain(const std::vector<RunningApplication>& running);

 private:
  struct Entry {
    RunningApplication application;
    ApplicationSnapshot snapshot;
    double readAt = 0;  // uptime
  };

  void limit();

  const Clock& clock_;
  /// Newest first.
  std::vector<Entry> entries_;
};

}  // namespace rondora
