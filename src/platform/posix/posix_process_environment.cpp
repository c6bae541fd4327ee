#include "platform/posix/posix_process_environment.h"

#include <cstdlib>

#include "base/program_identity.h"

namespace rondora::desktop {

std::optional<std::string> PosixProcessEnvironment::variable(std::string_view name) const {
  const char* value = std::getenv(std::string(name).c_str());
  if (!value) return std::nullopt;
  return std::string(value);
}

std::string PosixProcessEnvironment::bundleIdentifier() const {
  return std::string(program_identity::kBundleIdentifier);
}

}  // namespace rondora::desktop
