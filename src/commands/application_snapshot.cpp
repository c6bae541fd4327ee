#include "commands/application_snapshot.h"

namespace rondora {

const ApplicationSnapshot::Command* ApplicationSnapshot::command(const std::vector<std::string>& path) const {
  const auto found = commands.find(path);
  return found == commands.end() ? nullptr : &found->second;
}

std::size_t ApplicationSnapshot::byteCount() const {
  std::size_t bytes = sizeof(ApplicationSnapshot);
  for (const auto& [path, _] : commands) {
    bytes += sizeof(std::vector<std::string>) + sizeof(Command);
    for (const std::string& title : path) bytes += sizeof(std::string) + title.size();
  }
  return bytes;
}

}  // namespace rondora
