#include "commands/application_snapshot.h"

#include <algorithm>

namespace rondora {

const ApplicationSnapshot::Command* ApplicationSnapshot::command(const std::vector<std::string>& path) const {
  const auto found =
      std::find_if(commands.begin(), commands.end(), [&path](const Command& each) { return each.path == path; });
  return found == commands.end() ? nullptr : &*found;
}

std::size_t ApplicationSnapshot::byteCount() const {
  std::size_t bytes = sizeof(ApplicationSnapshot);
  for (const Command& each : commands) {
    bytes += sizeof(Command);
    for (const std::string& title : each.path) bytes += sizeof(std::string) + title.size();
  }
  return bytes;
}

}  // namespace rondora
