#include "app/repeat_limit.h"

#include <algorithm>

namespace rondora {
namespace {

constexpr double kWindow = 10;  // seconds
constexpr std::size_t kMaxRepeats = 10;

}  // namespace

void RepeatLimit::write(LogLevel level, std::string_view line) {
  const std::lock_guard lock(mutex_);
  for (Entry& entry : entries_) {
    if (clock_.uptime() - entry.begin >= kWindow) end(entry);
  }
  if (++entryOf(level, line).count <= kMaxRepeats) log_.write(level, line);
}

/// The entry of the line, otherwise the oldest, which ends.
RepeatLimit::Entry& RepeatLimit::entryOf(LogLevel level, std::string_view line) {
  const auto found = std::find_if(entries_.begin(), entries_.end(), [&](const Entry& entry) {
    return entry.count > 0 && entry.level == level && entry.line == line;
  });
  if (found != entries_.end()) return *found;
  Entry& oldest = *std::min_element(entries_.begin(), entries_.end(),
                                    [](const Entry& a, const Entry& b) { return a.begin < b.begin; });
  end(oldest);
  oldest = {std::string(line), level, clock_.uptime(), 0};
  return oldest;
}

void RepeatLimit::end(Entry& entry) {
  if (entry.count > kMaxRepeats) {
    log_.write(entry.level, entry.line + " (" + std::to_string(entry.count - kMaxRepeats) + " more)");
  }
  entry.count = 0;
}

}  // namespace rondora
