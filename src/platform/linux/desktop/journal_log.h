#pragma once

#include <string>

#include "platform/log.h"
#include "platform/posix/file_descriptor.h"

namespace rondora::desktop {

/// Writes to the journal when there is one, otherwise to standard error with the level as prefix. Also uses standard
/// error when that is the journal, so that the lines stay in order with those of the libraries.
class JournalLog final : public Log {
 public:
  explicit JournalLog(const std::string& socketPath = "/run/systemd/journal/socket");

  void write(LogLevel level, std::string_view line) override;

 private:
  bool sendToJournal(LogLevel level, std::string_view line) const;

  FileDescriptor socket_;
};

}  // namespace rondora::desktop
