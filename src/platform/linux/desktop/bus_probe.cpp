#include "platform/linux/desktop/bus_probe.h"

#include <poll.h>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <charconv>
#include <cstddef>
#include <cstring>
#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>

#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {
namespace {

/// Where libdbus and GDBus look when the variable names no other address.
constexpr const char* kSystemBus = "unix:path=/var/run/dbus/system_bus_socket";
constexpr std::size_t kAlignment = 8;  // of a message's header and of each of its fields

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
  if (auto address = environment.variable(addressVariable(bus))) return address;
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

/// The beginning of the authentication protocol: the credentials byte and the user's number, in hexadecimal digits of
/// its decimal ones.
std::string authentication() {
  std::string text("\0AUTH EXTERNAL ", 15);
  for (const char digit : std::to_string(::getuid())) text += {'3', digit};  // as ASCII
  return text + "\r\n";
}

void appendNumber(std::string& bytes, std::size_t number) {
  for (int shift = 0; shift < 32; shift += 8) bytes += static_cast<char>(number >> shift & 0xFF);
}

void align(std::string& bytes) { bytes.resize((bytes.size() + kAlignment - 1) / kAlignment * kAlignment); }

/// A header field: its code, and a string of this type.
void appendField(std::string& fields, char code, char type, std::string_view value) {
  align(fields);
  fields += {code, 1, type, 0};
  appendNumber(fields, value.size());
  fields.append(value) += '\0';
}

/// The end of the authentication and the first call of each client, which the bus answers with the client's name.
std::string hello() {
  std::string fields;
  appendField(fields, 1, 'o', "/org/freedesktop/DBus");
  appendField(fields, 6, 's', "org.freedesktop.DBus");
  appendField(fields, 2, 's', "org.freedesktop.DBus");
  appendField(fields, 3, 's', "Hello");
  std::string message{'l', 1, 0, 1};  // little-endian, a call, no flags, version
  appendNumber(message, 0);           // length of the body
  appendNumber(message, 1);           // serial number
  appendNumber(message, fields.size());
  message += fields;
  align(message);
  return "BEGIN\r\n" + message;
}

enum class Answer { none, some, accepted };

/// Sends the text and waits for the beginning of an answer. A closed connection is an answer, too.
Answer ask(const FileDescriptor& connection, const std::string& text, std::chrono::milliseconds limit) {
  if (::send(connection.get(), text.data(), text.size(), MSG_NOSIGNAL) < 0) return Answer::some;
  pollfd readable{connection.get(), POLLIN, 0};
  if (::poll(&readable, 1, static_cast<int>(limit.count())) != 1) return Answer::none;
  std::array<char, 256> answer{};
  const ssize_t length = ::read(connection.get(), answer.data(), answer.size());
  return length >= 2 && answer[0] == 'O' && answer[1] == 'K' ? Answer::accepted : Answer::some;
}

}  // namespace

const char* addressVariable(MessageBus bus) {
  return bus == MessageBus::session ? "DBUS_SESSION_BUS_ADDRESS" : "DBUS_SYSTEM_BUS_ADDRESS";
}

bool doesBusAnswer(MessageBus bus, const ProcessEnvironment& environment, std::chrono::milliseconds limit) {
  const auto name = socketName(bus, environment);
  if (!name) return true;
  bool isRefused = false;
  const FileDescriptor connection = connectTo(*name, isRefused);
  if (!connection.isOpen()) return isRefused;
  const auto deadline = std::chrono::steady_clock::now() + limit;
  const Answer answer = ask(connection, authentication(), limit);
  if (answer != Answer::accepted) return answer == Answer::some;
  const auto rest = std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now());
  return ask(connection, hello(), std::max(rest, rest.zero())) != Answer::none;
}

}  // namespace rondora::desktop
