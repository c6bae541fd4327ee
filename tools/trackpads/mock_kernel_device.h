#pragma once

#include <linux/input.h>

#include <atomic>
#include <chrono>
#include <cstdint>
#include <map>
#include <mutex>
#include <set>
#include <span>
#include <string>
#include <vector>

namespace rondora::live {

/// A kernel input device: its capabilities and state as its ioctls report them, and the events that change the state.
/// The ioctls are served on another thread.
class MockKernelDevice {
 public:
  MockKernelDevice(std::set<int> properties, std::set<int> keys, std::map<int, input_absinfo> axes);

  /// The hexadecimal words of sysfs.
  std::string propertiesInSysfs() const;
  std::string keysInSysfs() const;
  std::string axesInSysfs() const;

  /// Changes the state and remembers the event until `takeEvents`; values that stay as they are cause no event.
  void change(std::uint16_t type, std::uint16_t code, std::int32_t value);
  /// The same for an axis of a slot.
  void changeSlot(int slot, std::uint16_t code, std::int32_t value);
  /// The events since the last call, ended by SYN_REPORT, all at this time.
  std::vector<input_event> takeEvents(std::chrono::microseconds time);

  /// Fills `answer` for an ioctl of the event interface, whose content is that of the caller. Returns the result; -1 if
  /// there is no such ioctl.
  long serve(unsigned long request, std::span<std::uint8_t> answer);
  /// A program has opened it and read its state. Events from before are part of that state, but stay in the pipe.
  bool isOpened() const { return isOpened_; }

 private:
  long serveBits(unsigned eventType, std::span<std::uint8_t> answer) const;
  long serveSlots(std::span<std::uint8_t> answer) const;
  std::set<int> axisCodes() const;

  std::atomic<bool> isOpened_ = false;
  std::mutex lock_;
  std::set<int> properties_;
  std::set<int> keys_;
  std::map<int, input_absinfo> axes_;
  std::set<int> pressed_;
  /// By axis, a value for each slot.
  std::map<int, std::vector<std::int32_t>> slots_;
  int slot_ = 0;
  std::vector<input_event> events_;
};

}  // namespace rondora::live
