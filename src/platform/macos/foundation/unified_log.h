#pragma once

#include <os/log.h>

#include <string>

#include "platform/log.h"

namespace rondora::macos {

/// The unified log, under the program's identifier. Lines are public.
class UnifiedLog final : public Log {
 public:
  UnifiedLog();

  void write(LogLevel level, std::string_view line) override;

 private:
  /// Lives as long as the process.
  os_log_t log_;
};

}  // namespace rondora::macos
