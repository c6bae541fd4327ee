#include "platform/linux/evdev/trackpad_reader.h"

#include <fcntl.h>
#include <libevdev/libevdev.h>
#include <poll.h>
#include <sys/epoll.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <cstdint>
#include <ctime>
#include <utility>

#include "base/owned.h"
#include "platform/linux/evdev/contact_decoder.h"

namespace rondora::desktop {
namespace {

constexpr const char* kThreadLabel = "Rondora.Trackpads";
/// In place of a device.
constexpr MultitouchDevice kEnd = 0;

using Device = UniqueCPtr<libevdev, libevdev_free>;

Device openDevice(int descriptor) {
  libevdev* opened = nullptr;
  if (libevdev_new_from_fd(descriptor, &opened) != 0) return nullptr;
  // The default is the wall clock, which the user may set during a tap.
  libevdev_set_clock_id(opened, CLOCK_MONOTONIC);
  return Device(opened);
}

double seconds(const input_event& event) {
  constexpr double kMicroseconds = 1e6;
  return static_cast<double>(event.input_event_sec) + static_cast<double>(event.input_event_usec) / kMicroseconds;
}

bool watch(int epoll, int descriptor, MultitouchDevice device) {
  epoll_event event{};
  event.events = EPOLLIN;
  event.data.u64 = device;
  return ::epoll_ctl(epoll, EPOLL_CTL_ADD, descriptor, &event) == 0;
}

}  // namespace

/// An open trackpad.
class TrackpadReader::Trackpad {
 public:
  Trackpad(FileDescriptor node, Device device, MultitouchDevices::FrameCallback callback)
      : node_(std::move(node)), device_(std::move(device)), decoder_(*device_), callback_(std::move(callback)) {}

  int descriptor() const { return node_.get(); }
  bool hasVanished() const {
    pollfd polled{node_.get(), 0, 0};
    return ::poll(&polled, 1, 0) > 0;  // only errors and the hang-up, which need no request
  }

  /// Delivers the frames that have arrived; false when the device cannot be read any more. After lost events
  /// (SYN_DROPPED) libevdev reads the state of the device and reports the difference.
  bool deliverFrames(MultitouchDevice self) {
    unsigned mode = LIBEVDEV_READ_FLAG_NORMAL;
    while (true) {
      input_event event{};
      const int status = libevdev_next_event(device_.get(), mode, &event);
      if (status == -EAGAIN && mode == LIBEVDEV_READ_FLAG_NORMAL) return true;
      if (status < 0 && status != -EAGAIN && status != -EINTR) return false;
      mode = status == LIBEVDEV_READ_STATUS_SYNC ? LIBEVDEV_READ_FLAG_SYNC : LIBEVDEV_READ_FLAG_NORMAL;
      if (status >= 0 && event.type == EV_SYN && event.code == SYN_REPORT) deliver(self, seconds(event));
    }
  }

 private:
  void deliver(MultitouchDevice self, double timestamp) {
    const auto records = decoder_.decodeFrame();
    callback_(self, records.empty() ? nullptr : records.front().data(), static_cast<std::int32_t>(records.size()),
              timestamp);
  }

  FileDescriptor node_;
  Device device_;
  ContactDecoder decoder_;
  MultitouchDevices::FrameCallback callback_;
};

TrackpadReader::TrackpadReader(NameThread nameThread) : nameThread_(nameThread) {
  // By default libevdev writes a line for each odd event of a faulty device to standard error.
  libevdev_set_log_function(nullptr, nullptr);
}

TrackpadReader::~TrackpadReader() { endThread(); }

void TrackpadReader::open(MultitouchDevice device, const std::filesystem::path& node,
                          MultitouchDevices::FrameCallback callback) {
  FileDescriptor opened(::open(node.c_str(), O_RDONLY | O_NONBLOCK | O_CLOEXEC));
  if (!opened.isOpen()) return;
  Device evdev = openDevice(opened.get());
  if (!evdev) return;
  startThread();
  auto trackpad = std::make_unique<Trackpad>(std::move(opened), std::move(evdev), std::move(callback));
  const std::lock_guard guard(mutex_);
  if (watch(epoll_.get(), trackpad->descriptor(), device)) trackpads_[device] = std::move(trackpad);
}

void TrackpadReader::close(MultitouchDevice device) {
  bool wasLast = false;
  {
    const std::lock_guard guard(mutex_);
    trackpads_.erase(device);
    wasLast = trackpads_.empty();
  }
  if (wasLast) endThread();
}

void TrackpadReader::startThread() {
  if (thread_.joinable()) return;
  epoll_ = FileDescriptor(::epoll_create1(EPOLL_CLOEXEC));
  end_ = FileDescriptor(::eventfd(0, EFD_CLOEXEC));
  watch(epoll_.get(), end_.get(), kEnd);
  thread_ = std::thread([this] { run(); });
}

void TrackpadReader::endThread() {
  if (!thread_.joinable()) return;
  const std::uint64_t one = 1;
  [[maybe_unused]] const auto written = ::write(end_.get(), &one, sizeof one);
  thread_.join();
  epoll_ = {};
  end_ = {};
}

void TrackpadReader::run() {
  if (nameThread_ != nullptr) nameThread_(kThreadLabel);
  std::array<epoll_event, 8> events{};
  while (true) {
    const int count = ::epoll_wait(epoll_.get(), events.data(), static_cast<int>(events.size()), -1);
    if (count < 0 && errno != EINTR) return;
    const std::lock_guard guard(mutex_);
    for (int i = 0; i < count; ++i) {
      const epoll_event& event = events[static_cast<std::size_t>(i)];
      if (event.data.u64 == kEnd) return;
      read(event.data.u64, (event.events & (EPOLLHUP | EPOLLERR)) != 0);
    }
  }
}

// While the event waited for the lock, another node may have been opened for the same device.
void TrackpadReader::read(MultitouchDevice device, bool mayHaveVanished) {
  const auto found = trackpads_.find(device);
  if (found == trackpads_.end()) return;
  const Trackpad& trackpad = *found->second;
  if (!found->second->deliverFrames(device) || (mayHaveVanished && trackpad.hasVanished())) trackpads_.erase(found);
}

}  // namespace rondora::desktop
