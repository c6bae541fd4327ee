#pragma once

#include <string>

#include "platform/linux/desktop/standard_error.h"
#include "platform/log.h"
#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Writes to the journal when there is one, otherwise to standard error with the level as prefix. Also uses standard
/// error when that is the journal, so that the lines stay in order with those of the libraries. Never blocks. Escapes
/// what could forge lines or steer a terminal: titles of windows and texts of sites are in some lines.
class JournalLog final : public Log {
 public:
  explicit JournalLog(const std::string& socketPath = "/run/systemd/journal/socket");

  void write(LogLevel level, std::string_view line) override;

 private:
  bool sendToJournal(LogLevel level, std::string_view line) const;

  FileDescriptor socket_;
  LineOutput standardError_;
};

}  // namespace rondora::desktop
