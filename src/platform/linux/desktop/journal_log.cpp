#include "platform/linux/desktop/journal_log.h"

#include <sys/socket.h>
#include <sys/stat.h>
#include <sys/un.h>

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>

#include "base/unicode.h"

namespace rondora::desktop {
namespace {

/// JOURNAL_STREAM holds device and inode of the stream that the service manager connected to the journal
/// (systemd.exec(5)).
bool isStandardErrorTheJournal() {
  const char* stream = std::getenv("JOURNAL_STREAM");
  struct stat status {};
  if (!stream || ::fstat(STDERR_FILENO, &status) != 0) return false;
  return std::to_string(status.st_dev) + ":" + std::to_string(status.st_ino) == stream;
}

FileDescriptor connectTo(const std::string& path) {
  sockaddr_un address{};
  address.sun_family = AF_UNIX;
  if (path.size() >= sizeof address.sun_path) return {};
  std::memcpy(address.sun_path, path.c_str(), path.size() + 1);
  FileDescriptor result(::socket(AF_UNIX, SOCK_DGRAM | SOCK_CLOEXEC | SOCK_NONBLOCK, 0));
  if (!result.isOpen()) return {};
  if (::connect(result.get(), reinterpret_cast<const sockaddr*>(&address), sizeof address) != 0) return {};
  return result;
}

/// A field with arbitrary bytes: name, newline, 64-bit little-endian length, value, newline (the journal's native
/// protocol).
std::string binaryField(std::string_view name, std::string_view value) {
  std::string field(name);
  field += '\n';
  for (int shift = 0; shift < 64; shift += 8) {
    field += static_cast<char>(static_cast<std::uint64_t>(value.size()) >> shift);
  }
  field += value;
  field += '\n';
  return field;
}

}  // namespace

JournalLog::JournalLog(const std::string& socketPath) : standardError_(STDERR_FILENO) {
  if (!isStandardErrorTheJournal()) socket_ = connectTo(socketPath);
}

void JournalLog::write(LogLevel level, std::string_view line) {
  const std::string text = controlsEscaped(line);
  if (socket_.isOpen() && sendToJournal(level, text)) return;
  standardError_.write(level == LogLevel::error ? "error: " + text : text);
}

bool JournalLog::sendToJournal(LogLevel level, std::string_view line) const {
  const char* priority = level == LogLevel::error ? "PRIORITY=3\n" : "PRIORITY=5\n";
  const std::string record = std::string(priority) + "SYSLOG_IDENTIFIER=rondora\n" + binaryField("MESSAGE", line);
  ssize_t sent = 0;
  do {
    sent = ::send(socket_.get(), record.data(), record.size(), MSG_NOSIGNAL);
  } while (sent < 0 && errno == EINTR);
  return sent >= 0;
}

}  // namespace rondora::desktop
