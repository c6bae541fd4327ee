#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

namespace rondora {

/// A process as the window server knows it. Opaque.
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

  /// Whether this system lets one application make another one frontmost with a chosen window.
  virtual bool available() const = 0;
  virtual Lookup processForPID(std::int32_t processIdentifier) const = 0;
  /// Restores the window, goes to its space, and makes it and its process frontmost.
  virtual std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t window, std::uint32_t options) = 0;

  /// Whether event records can be posted.
  virtual bool postsEventRecords() const = 0;
  virtual void postEventRecord(ProcessSerialNumber process, const EventRecord& record) = 0;
};

}  // namespace rondora
