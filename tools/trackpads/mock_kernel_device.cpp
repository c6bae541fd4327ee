#include "trackpads/mock_kernel_device.h"

#include <algorithm>
#include <cstring>
#include <iomanip>
#include <sstream>
#include <string_view>
#include <utility>

namespace rondora::live {
namespace {

constexpr std::string_view kName = "Mock trackpad";
constexpr int kDriverVersion = 0x010001;

bool isSlotAxis(int code) { return code > ABS_MT_SLOT && code <= ABS_MT_TOOL_Y; }

long fillBits(std::span<std::uint8_t> bytes, const std::set<int>& bits) {
  std::ranges::fill(bytes, std::uint8_t{0});
  for (const int bit : bits) {
    const auto byte = static_cast<std::size_t>(bit / 8);
    if (byte < bytes.size()) bytes[byte] = static_cast<std::uint8_t>(bytes[byte] | 1U << (bit % 8));
  }
  return static_cast<long>(bytes.size());
}

std::string sysfsWords(const std::set<int>& bits) {
  constexpr int kWordBits = 64;
  std::vector<std::uint64_t> words(bits.empty() ? 1 : static_cast<std::size_t>(*bits.rbegin() / kWordBits + 1));
  for (const int bit : bits) words[static_cast<std::size_t>(bit / kWordBits)] |= std::uint64_t{1} << (bit % kWordBits);
  std::ostringstream text;
  for (auto word = words.rbegin(); word != words.rend(); ++word) {
    text << (word == words.rbegin() ? "" : " ") << std::hex << *word;
  }
  return text.str();
}

template <class T>
long fill(std::span<std::uint8_t> answer, const T& value) {
  std::memcpy(answer.data(), &value, std::min(answer.size(), sizeof value));
  return 0;
}

}  // namespace

MockKernelDevice::MockKernelDevice(std::set<int> properties, std::set<int> keys, std::map<int, input_absinfo> axes)
    : properties_(std::move(properties)), keys_(std::move(keys)), axes_(std::move(axes)) {
  const auto slots = axes_.find(ABS_MT_SLOT);
  if (slots == axes_.end()) return;
  for (const auto& [code, info] : axes_) {
    const int initial = code == ABS_MT_TRACKING_ID ? -1 : 0;
    if (isSlotAxis(code)) slots_[code].assign(static_cast<std::size_t>(slots->second.maximum) + 1, initial);
  }
}

std::string MockKernelDevice::propertiesInSysfs() const { return sysfsWords(properties_); }
std::string MockKernelDevice::keysInSysfs() const { return sysfsWords(keys_); }
std::string MockKernelDevice::axesInSysfs() const { return sysfsWords(axisCodes()); }

std::set<int> MockKernelDevice::axisCodes() const {
  std::set<int> codes;
  for (const auto& [code, info] : axes_) codes.insert(code);
  return codes;
}

void MockKernelDevice::change(std::uint16_t type, std::uint16_t code, std::int32_t value) {
  const std::lock_guard guard(lock_);
  if (type == EV_KEY) {
    if (value != 0 ? !pressed_.insert(code).second : pressed_.erase(code) == 0) return;
  } else if (type == EV_ABS) {
    if (std::exchange(axes_[code].value, value) == value) return;
  }
  events_.push_back({.time = {}, .type = type, .code = code, .value = value});
}

void MockKernelDevice::changeSlot(int slot, std::uint16_t code, std::int32_t value) {
  {
    const std::lock_guard guard(lock_);
    auto& present = slots_.at(code).at(static_cast<std::size_t>(slot));
    if (std::exchange(present, value) == value) return;
  }
  change(EV_ABS, ABS_MT_SLOT, slot);
  const std::lock_guard guard(lock_);
  events_.push_back({.time = {}, .type = EV_ABS, .code = code, .value = value});
}

std::vector<input_event> MockKernelDevice::takeEvents(std::chrono::microseconds time) {
  const std::lock_guard guard(lock_);
  auto events = std::exchange(events_, {});
  events.push_back({.time = {}, .type = EV_SYN, .code = SYN_REPORT, .value = 0});
  for (input_event& event : events) {
    event.input_event_sec = time.count() / 1000000;
    event.input_event_usec = time.count() % 1000000;
  }
  return events;
}

long MockKernelDevice::serve(unsigned long request, std::span<std::uint8_t> answer) {
  const std::lock_guard guard(lock_);
  const unsigned number = _IOC_NR(request);
  if (request == EVIOCGVERSION) return fill(answer, kDriverVersion);
  if (request == EVIOCGID) return fill(answer, input_id{BUS_I2C, 1, 2, 3});
  if (request == EVIOCSCLOCKID) {
    isOpened_ = true;  // the last request of an opening
    return 0;
  }
  if (_IOC_DIR(request) != _IOC_READ) return -1;
  if (number >= _IOC_NR(EVIOCGABS(0)) && number < _IOC_NR(EVIOCGABS(0)) + ABS_CNT) {
    const auto axis = axes_.find(static_cast<int>(number - _IOC_NR(EVIOCGABS(0))));
    return axis == axes_.end() ? -1 : fill(answer, axis->second);
  }
  if (number >= _IOC_NR(EVIOCGBIT(0, 0)) && number < _IOC_NR(EVIOCGBIT(0, 0)) + EV_CNT) {
    return serveBits(number - _IOC_NR(EVIOCGBIT(0, 0)), answer);
  }
  if (number == _IOC_NR(EVIOCGMTSLOTS(0))) return serveSlots(answer);
  if (number == _IOC_NR(EVIOCGNAME(0))) {
    std::memcpy(answer.data(), kName.data(), std::min(answer.size(), kName.size()));
    return static_cast<long>(kName.size());
  }
  if (number == _IOC_NR(EVIOCGPROP(0))) return fillBits(answer, properties_);
  if (number == _IOC_NR(EVIOCGKEY(0))) return fillBits(answer, pressed_);
  return number == _IOC_NR(EVIOCGLED(0)) || number == _IOC_NR(EVIOCGSW(0)) ? fillBits(answer, {}) : -1;
}

long MockKernelDevice::serveBits(unsigned eventType, std::span<std::uint8_t> answer) const {
  const std::map<unsigned, std::set<int>> bits = {
      {0, {EV_SYN, EV_KEY, EV_ABS}}, {EV_KEY, keys_}, {EV_ABS, axisCodes()}};
  const auto found = bits.find(eventType);
  return fillBits(answer, found == bits.end() ? std::set<int>() : found->second);
}

/// The caller names the axis in the first word and gets its values behind it.
long MockKernelDevice::serveSlots(std::span<std::uint8_t> answer) const {
  std::int32_t code = 0;
  std::memcpy(&code, answer.data(), sizeof code);
  const auto axis = slots_.find(code);
  if (axis == slots_.end()) return -1;
  const auto values = answer.subspan(sizeof code);
  std::memcpy(values.data(), axis->second.data(), std::min(values.size(), axis->second.size() * sizeof code));
  return 0;
}

}  // namespace rondora::live
