#include "desktop/x_server.h"

#include <sys/mman.h>
#include <unistd.h>

#include <cstdlib>
#include <cstring>
#include <stdexcept>

#include "desktop/wait.h"

namespace rondora::live {

XServer::XServer(const std::string& screen, const std::vector<std::string>& extraArguments) {
  const int number = memfd_create("display", MFD_CLOEXEC);
  // Without -noreset the server drops its monitors when the last client disconnects.
  std::vector<std::string> arguments = {
      "Xvfb",      "-displayfd", std::to_string(number), "-noreset", "-screen", "0", screen,
      "-nolisten", "tcp",        "+extension",           "RANDR"};
  arguments.insert(arguments.end(), extraArguments.begin(), extraArguments.end());
  process_.emplace(arguments, std::map<std::string, std::string>{}, number);
  char line[16] = {};  // written once the server accepts clients
  const bool isUp =
      waitUntil([&] { return pread(number, line, sizeof line - 1, 0) > 0 && std::strchr(line, '\n') != nullptr; });
  close(number);
  if (!isUp) throw std::runtime_error("the X server did not come up");
  display_ = ":" + std::to_string(std::atoi(line));
}

}  // namespace rondora::live
