#include "platform/linux/desktop/message_buses.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>

#include <algorithm>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <string_view>
#include <system_error>
#include <utility>

#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {
namespace {

/// Where libdbus and GDBus look when the variable names no other address.
constexpr const char* kSystemBus = "unix:path=/var/run/dbus/system_bus_socket";
/// No socket: a connection is refused at once.
constexpr const char* kNoBus = "unix:path=/dev/null";
/// The credentials byte and a request that every server answers (the authentication protocol of D-Bus).
constexpr std::string_view kGreeting{"\0AUTH\r\n", 7};

using Variables = std::map<std::string, std::optional<std::string>>;

Variables& hidden() {
  static Variables variables;
  return variables;
}

const char* variableOf(MessageBus bus) {
  return bus == MessageBus::session ? "DBUS_SESSION_BUS_ADDRESS" : "DBUS_SYSTEM_BUS_ADDRESS";
}

/// The value of `key` in the first address of the list, without its %-escapes; nothing when it has none.
std::optional<std::string> valueOf(std::string_view key, std::string_view list) {
  std::string_view address = list.substr(0, list.find(';'));
  if (!address.starts_with("unix:")) return std::nullopt;
  address.remove_prefix(std::string_view("unix:").size());
  while (!address.empty()) {
    const std::string_view pair = address.substr(0, address.find(','));
    address.remove_prefix(std::min(pair.size() + 1, address.size()));
    if (pair.size() <= key.size() || !pair.starts_with(key) || pair[key.size()] != '=') continue;
    std::string value;
    for (std::string_view rest = pair.substr(key.size() + 1); !rest.empty();) {
      unsigned char byte = static_cast<unsigned char>(rest.front());
      const bool isEscape = byte == '%' && rest.size() > 2;
      if (isEscape) std::from_chars(rest.data() + 1, rest.data() + 3, byte, 16);
      value += static_cast<char>(byte);
      rest.remove_prefix(isEscape ? 3 : 1);
    }
    return value;
  }
  return std::nullopt;
}

/// The list of addresses; nothing when only the libraries find the bus.
std::optional<std::string> addressOf(MessageBus bus, const ProcessEnvironment& environment) {
  if (auto address = environment.variable(variableOf(bus))) return address;
  if (bus == MessageBus::system) return kSystemBus;
  const auto folder = environment.variable("XDG_RUNTIME_DIR");
  std::error_code error;
  if (!folder || !std::filesystem::exists(*folder + "/bus", error)) return std::nullopt;
  return "unix:path=" + *folder + "/bus";
}

/// The name of the bus's socket as in sockaddr_un; an abstract name begins with a zero byte.
std::optional<std::string> socketName(MessageBus bus, const ProcessEnvironment& environment) {
  const auto address = addressOf(bus, environment);
  if (!address) return std::nullopt;
  if (auto path = valueOf("path", *address)) return path;
  const auto abstractName = valueOf("abstract", *address);
  return abstractName ? std::optional('\0' + *abstractName) : std::nullopt;
}

/// Not open when the bus does not accept: an error reply is an answer, too, but a full backlog is none.
FileDescriptor connectTo(const std::string& name, bool& isRefused) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  FileDescriptor result(::socket(AF_UNIX, SOCK_STREAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!result.isOpen() || name.size() >= sizeof address.sun_path) return {};
  std::memcpy(address.sun_path, name.data(), name.size());
  const auto length = static_cast<socklen_t>(offsetof(sockaddr_un, sun_path) + name.size());
  if (::connect(result.get(), reinterpret_cast<const sockaddr*>(&address), length) == 0) return result;
  isRefused = errno != EAGAIN;
  return {};
}

}  // namespace

bool doesBusAnswer(MessageBus bus, const ProcessEnvironment& environment, std::chrono::milliseconds limit) {
  const auto name = socketName(bus, environment);
  if (!name) return true;
  bool isRefused = false;
  const FileDescriptor connection = connectTo(*name, isRefused);
  if (!connection.isOpen()) return isRefused;
  if (::send(connection.get(), kGreeting.data(), kGreeting.size(), MSG_NOSIGNAL) < 0) return true;
  pollfd readable{connection.get(), POLLIN, 0};
  return ::poll(&readable, 1, static_cast<int>(limit.count())) == 1;
}

void hideBus(MessageBus bus) {
  const char* value = std::getenv(variableOf(bus));
  hidden()[variableOf(bus)] = value != nullptr ? std::optional<std::string>(value) : std::nullopt;
  setenv(variableOf(bus), kNoBus, 1);
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
