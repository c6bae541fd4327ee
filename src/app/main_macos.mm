#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <optional>
#include <string>
#include <string_view>

#include "app/command_line.h"
#include "app/composition_macos.h"
#include "app/composition_picture_service.h"
#include "app/repeat_limit.h"
#include "base/trace.h"
#include "platform/macos/foundation/library_folders.h"
#include "platform/macos/foundation/unified_log.h"
#include "platform/posix/picture_service.h"
#include "platform/posix/system_clock.h"
#include "storage/config_manager.h"

namespace {

constexpr int kUsageError = 2;

/// The exit status when the arguments ask for a text only.
std::optional<int> replyToArguments(int argc, char** argv) {
  const rondora::desktop::PosixFileSystem files(rondora::macos::libraryFolders());
  const auto document = rondora::ConfigManager::configURL(files).string();
  const auto reply = rondora::replyToArguments({argv + 1, argv + argc}, document);
  if (!reply) return std::nullopt;
  std::fputs(reply->text.c_str(), reply->isUsageError ? stderr : stdout);
  return reply->isUsageError ? kUsageError : EXIT_SUCCESS;
}

void beginTraceIfAsked(rondora::Log& log) {
  const char* wish = std::getenv("RONDORA_TRACE");
  if (wish == nullptr || std::string_view(wish) != "1") return;
  rondora::trace::begin([&log](const std::string& line) { log.standard(line); });
}

}  // namespace

int main(int argc, char** argv) {
  @autoreleasepool {
    if (rondora::desktop::isPictureService(argc, argv)) return rondora::runPictureService(argc, argv);
    std::signal(SIGPIPE, SIG_IGN);
    if (argc > 1) {
      if (const auto status = replyToArguments(argc, argv)) return *status;
    }
    rondora::desktop::SystemClock clock;
    rondora::macos::UnifiedLog systemLog;
    rondora::RepeatLimit log(systemLog, clock);
    beginTraceIfAsked(systemLog);
    rondora::CompositionMacOS::runLegacyMigration(log);
    rondora::CompositionMacOS composition(log);
    composition.run();
  }
  return EXIT_SUCCESS;
}
