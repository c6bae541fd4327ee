#include "platform/linux/desktop/message_buses.h"

#include <cstdlib>
#include <utility>

namespace rondora::desktop {
namespace {

/// No socket: a connection is refused at once.
constexpr const char* kNoBus = "unix:path=/dev/null";

using Variables = std::map<std::string, std::optional<std::string>>;

Variables& hidden() {
  static Variables variables;
  return variables;
}

}  // namespace

void hideBus(MessageBus bus) {
  const char* value = std::getenv(addressVariable(bus));
  hidden()[addressVariable(bus)] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
  setenv(addressVariable(bus), kNoBus, 1);
}

void showBuses() {
  for (const auto& [variable, value] : std::exchange(hidden(), {})) {
    if (value) {
      setenv(variable.c_str(), value->c_str(), 1);
    } else {
      unsetenv(variable.c_str());
    }
  }
}

const std::map<std::string, std::optional<std::string>>& hiddenBuses() { return hidden(); }

}  // namespace rondora::desktop
