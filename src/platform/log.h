#pragma once

#include <string_view>

namespace rondora {

enum class LogLevel { standard, error };

/// The system log: one line per call, in English. Any thread.
class Log {
 public:
  virtual ~Log() = default;

  virtual void write(LogLevel level, std::string_view line) = 0;

  void standard(std::string_view line) { write(LogLevel::standard, line); }
  void error(std::string_view line) { write(LogLevel::error, line); }
};

}  // namespace rondora
