#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace rondora {

/// The window server's identifier of a process. Opaque.
struct ProcessSerialNumber {
  std::uint32_t high = 0;
  std::uint32_t low = 0;
  friend bool operator==(const ProcessSerialNumber&, const ProcessSerialNumber&) = default;
};

/// Makes processes frontmost. Status values are the system's own; 0 is success. Main thread.
class FrontProcess {
 public:
  static constexpr std::size_t kEventRecordSize = 248;
  using EventRecord = std::array<std::uint8_t, kEventRecordSize>;

  struct Lookup {
    std::int32_t status = 0;
    ProcessSerialNumber serialNumber;
  };

  virtual ~FrontProcess() = default;

  /// True when the system lets one application bring a chosen window of another to the front.
  virtual bool available() const = 0;
  virtual Lookup processForPID(std::int32_t processIdentifier) const = 0;
  /// Restores the window, switches to its space, and makes the window and its process frontmost.
  virtual std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t window, std::uint32_t options) = 0;

  /// True when event records can be posted.
  virtual bool postsEventRecords() const = 0;
  virtual void postEventRecord(ProcessSerialNumber process, const EventRecord& record) = 0;
};

}  // namespace rondora
