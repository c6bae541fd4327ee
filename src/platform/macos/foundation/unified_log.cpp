#include "platform/macos/foundation/unified_log.h"

#include "base/program_identity.h"

namespace rondora::macos {
namespace {

constexpr const char* kCategory = "app";

}  // namespace

UnifiedLog::UnifiedLog() : log_(os_log_create(std::string(program_identity::kBundleIdentifier).c_str(), kCategory)) {}

void UnifiedLog::write(LogLevel level, std::string_view line) {
  const std::string text(line);
  os_log_with_type(log_, level == LogLevel::error ? OS_LOG_TYPE_ERROR : OS_LOG_TYPE_DEFAULT, "%{public}s",
                   text.c_str());
}

}  // namespace rondora::macos
