#include <cstdio>
#include <cstdlib>

#include "app/command_line.h"

namespace {

constexpr int kUsageError = 2;

}  // namespace

int main(int argc, char** argv) {
  if (const auto reply = rondora::replyToArguments({argv + 1, argv + argc}, "config.json")) {
    std::fputs(reply->text.c_str(), reply->isUsageError ? stderr : stdout);
    return reply->isUsageError ? kUsageError : EXIT_SUCCESS;
  }
  return EXIT_SUCCESS;
}
