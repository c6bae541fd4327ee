// Brings up a private desktop and runs a command on it; the desktop ends with the command.

#include <csignal>
#include <cstdlib>
#include <exception>
#include <iostream>
#include <optional>
#include <string>
#include <string_view>
#include <thread>
#include <vector>

#include "desktop/private_desktop.h"

namespace rondora::live {
namespace {

constexpr const char* kUsage =
    "usage: private_desktop [--size WIDTHxHEIGHT] [--window-manager none|openbox|xfwm4|i3] [--compositor none|picom]\n"
    "                       [--tray none|tint2] -- COMMAND...\n"
    "The exit status is that of COMMAND.\n";
constexpr int kUsageError = 2;

volatile std::sig_atomic_t caughtSignal = 0;

struct Request {
  DesktopParts parts;
  std::vector<std::string> command;
};

template <class Part>
bool choose(Part& part, const std::vector<std::string_view>& names, std::string_view name) {
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (names[i] != name) continue;
    part = static_cast<Part>(i);
    return true;
  }
  return false;
}

bool setOption(DesktopParts& parts, std::string_view option, std::string_view value) {
  if (option == "--size") parts.screen = std::string(value) + "x24";
  if (option == "--size") return true;
  if (option == "--window-manager") return choose(parts.windowManager, {"none", "openbox", "xfwm4", "i3"}, value);
  if (option == "--compositor") return choose(parts.compositor, {"none", "picom"}, value);
  return option == "--tray" && choose(parts.tray, {"none", "tint2"}, value);
}

std::optional<Request> parse(const std::vector<std::string>& arguments) {
  Request request;
  std::size_t i = 0;
  for (; i + 1 < arguments.size() && arguments[i] != "--"; i += 2) {
    if (!setOption(request.parts, arguments[i], arguments[i + 1])) return std::nullopt;
  }
  if (i + 1 >= arguments.size()) return std::nullopt;
  request.command.assign(arguments.begin() + static_cast<std::ptrdiff_t>(i) + 1, arguments.end());
  return request;
}

/// A signal ends the command first, then the desktop.
int run(const Request& request) {
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    std::signal(signal, [](int number) { caughtSignal = number; });
  }
  const PrivateDesktop desktop(request.parts);
  const auto process = desktop.startInTerminal(request.command);
  while (process->isRunning() && caughtSignal == 0) std::this_thread::sleep_for(std::chrono::milliseconds(20));
  return caughtSignal == 0 ? process->wait() : 128 + caughtSignal;
}

}  // namespace
}  // namespace rondora::live

int main(int argc, char** argv) {
  const auto request = rondora::live::parse({argv + 1, argv + argc});
  if (!request) {
    std::cerr << rondora::live::kUsage;
    return rondora::live::kUsageError;
  }
  try {
    return rondora::live::run(*request);
  } catch (const std::exception& failure) {
    std::cerr << "private_desktop: " << failure.what() << '\n';
    return EXIT_FAILURE;
  }
}
