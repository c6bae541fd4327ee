#pragma once

#include <array>
#include <cstddef>
#include <mutex>
#include <string>
#include <string_view>

#include "platform/clock.h"
#include "platform/log.h"

namespace rondora {

/// Passes lines on, but of equal lines within ten seconds only the first ten. The number of the others follows with the
/// first line after those ten seconds. Any thread.
class RepeatLimit final : public Log {
 public:
  /// Both must outlive the object.
  RepeatLimit(Log& log, Clock& clock) : log_(log), clock_(clock) {}

  void write(LogLevel level, std::string_view line) override;

 private:
  struct Entry {
    std::string line;
    LogLevel level = LogLevel::standard;
    double begin = 0;  // uptime, seconds
    std::size_t count = 0;
  };

  Entry& entryOf(LogLevel level, std::string_view line);
  void end(Entry& entry);

  Log& log_;
  Clock& clock_;
  std::mutex mutex_;
  /// The latest lines; a line that repeats less often than this many others needs no limit.
  std::array<Entry, 16> entries_;
};

}  // namespace rondora
