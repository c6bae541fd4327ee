#include "commands/snapshot_cache.h"

#include <algorithm>
#include <utility>

namespace rondora {
namespace {

auto isOf(const RunningApplication& application) {
  return [&application](const auto& entry) { return entry.application.isSameProcess(application); };
}

}  // namespace

const ApplicationSnapshot* SnapshotCache::find(const RunningApplication& application) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), isOf(application));
  if (found == entries_.end() || clock_.uptime() - found->readAt > kMaxAge) return nullptr;
  // Another window of the process has other menus and may be a dialog.
  return found->application.window == application.window ? &found->snapshot : nullptr;
}

double SnapshotCache::age(const RunningApplication& application) const {
  const auto found = std::find_if(entries_.begin(), entries_.end(), isOf(application));
  return found == entries_.end() ? kMaxAge : clock_.uptime() - found->readAt;
}

bool SnapshotCache::store(const RunningApplication& application, ApplicationSnapshot snapshot) {
  const auto before = std::find_if(entries_.begin(), entries_.end(), isOf(application));
  const bool isNew = before == entries_.end() || before->snapshot != snapshot;
  drop(application);
  entries_.insert(entries_.begin(), {application, std::move(snapshot), clock_.uptime()});
  limit();
  return isNew;
}

void SnapshotCache::drop(const RunningApplication& application) { std::erase_if(entries_, isOf(application)); }

void SnapshotCache::retain(const std::vector<RunningApplication>& running) {
  std::erase_if(entries_, [&running](const Entry& entry) {
    return std::none_of(running.begin(), running.end(), [&entry](const RunningApplication& application) {
      return application.isSameProcess(entry.application);
    });
  });
}

void SnapshotCache::limit() {
  std::size_t bytes = 0;
  std::size_t kept = 0;
  for (const Entry& entry : entries_) {
    bytes += entry.snapshot.byteCount();
    if (bytes > kMaxBytes || kept == kMaxApplications) break;
    ++kept;
  }
  entries_.resize(kept);
}

}  // namespace rondora
