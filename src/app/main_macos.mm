#include <cstdio>
#include <cstdlib>

#include "app/command_line.h"
#include "platform/macos/foundation/unified_log.h"
#include "ui/appkit/application/appkit_application_shell.h"

namespace {

constexpr int kUsageError = 2;

}  // namespace

int main(int argc, char** argv) {
  if (const auto reply = rondora::replyToArguments({argv + 1, argv + argc}, "config.json")) {
    std::fputs(reply->text.c_str(), reply->isUsageError ? stderr : stdout);
    return reply->isUsageError ? kUsageError : EXIT_SUCCESS;
  }
  rondora::macos::UnifiedLog log;
  rondora::appkit::AppKitApplicationShell shell;
  shell.run([&log] { log.error("the macOS program has no menus yet"); }, nullptr);
  return EXIT_SUCCESS;
}
