#include "support/x_server.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <stdexcept>

namespace rondora::live {
namespace {

constexpr int kStartMilliseconds = 30000;

/// The line that the server writes once it accepts clients.
std::string readDisplayNumber(int descriptor) {
  std::string number;
  pollfd waiting{descriptor, POLLIN, 0};
  while (poll(&waiting, 1, kStartMilliseconds) > 0) {
    char byte = 0;
    if (read(descriptor, &byte, 1) != 1) break;
    if (byte == '\n') return number;
    number += byte;
  }
  throw std::runtime_error("the X server did not come up");
}

}  // namespace

XServer::XServer(const std::string& screen, const std::vector<std::string>& extraArguments) {
  int ends[2];
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("cannot make a pipe");
  // Without -noreset the server forgets its monitors when the last client leaves.
  std::vector<std::string> arguments = {
      "Xvfb",       "-displayfd", std::to_string(ends[1]), "-noreset", "-screen", "0", screen, "-nolisten", "tcp",
      "+extension", "RANDR"};
  arguments.insert(arguments.end(), extraArguments.begin(), extraArguments.end());
  process_.emplace(arguments, std::map<std::string, std::string>{}, ends[1]);
  close(ends[1]);
  try {
    display_ = ":" + readDisplayNumber(ends[0]);
  } catch (...) {
    close(ends[0]);
    throw;
  }
  close(ends[0]);
}

}  // namespace rondora::live
