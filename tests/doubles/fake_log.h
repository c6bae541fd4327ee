#pragma once

#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "platform/log.h"

namespace rondora {

class FakeLog final : public Log {
 public:
  struct Line {
    LogLevel level = LogLevel::standard;
    std::string text;
    friend bool operator==(const Line&, const Line&) = default;
  };

  void write(LogLevel level, std::string_view line) override { lines.push_back({level, std::string(line)}); }
  bool contains(LogLevel level, std::string_view text) const {
    return std::ranges::find(lines, Line{level, std::string(text)}) != lines.end();
  }

  /// The lines since the last call, joined by spaces; a line that is no error begins with "standard: ".
  std::string take() {
    std::string text;
    for (const auto& [level, line] : std::exchange(lines, {})) {
      text += (text.empty() ? "" : " ") + std::string(level == LogLevel::error ? "" : "standard: ") + line;
    }
    return text.empty() ? "none" : text;
  }

  std::vector<Line> lines;
};

}  // namespace rondora
