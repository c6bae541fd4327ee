#include "platform/linux/evdev/trackpad_arrivals.h"

#include <sys/inotify.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <string_view>
#include <utility>

namespace rondora::desktop {
namespace {

using UdevDevice = UniqueCPtr<udev_device, udev_device_unref>;

bool isNewTrackpad(udev_device* device) {
  const char* action = udev_device_get_action(device);
  const char* isTrackpad = udev_device_get_property_value(device, "ID_INPUT_TOUCHPAD");
  return action != nullptr && isTrackpad != nullptr && std::string_view(action) == "add" &&
         std::string_view(isTrackpad) == "1";
}

}  // namespace

TrackpadArrivals::TrackpadArrivals(InputFolders folders, const WatchReadable& watchReadable,
                                   std::function<void()> arrived)
    : folders_(std::move(folders)),
      arrived_(std::move(arrived)),
      udev_(udev_new()),
      monitor_(udev_ ? udev_monitor_new_from_netlink(udev_.get(), "udev") : nullptr),
      nodes_(::inotify_init1(IN_NONBLOCK | IN_CLOEXEC)) {
  if (monitor_ && udev_monitor_filter_add_match_subsystem_devtype(monitor_.get(), "input", nullptr) >= 0 &&
      udev_monitor_enable_receiving(monitor_.get()) >= 0) {
    monitorWatch_ = watchReadable(udev_monitor_get_fd(monitor_.get()), [this] { udevReported(); });
  }
  if (nodes_.isOpen()) nodesWatch_ = watchReadable(nodes_.get(), [this] { nodesChanged(); });
  watchNodes();
  readable_ = readableNumbers();
}

/// A grant changes the mode or the access list of a node; nodes appear even where no udev runs. Watching a folder again
/// has no effect, and without any input device it does not exist.
void TrackpadArrivals::watchNodes() const {
  if (!nodes_.isOpen()) return;
  constexpr std::uint32_t kChanges = IN_ATTRIB | IN_CREATE | IN_DELETE;
  ::inotify_add_watch(nodes_.get(), folders_.nodes.c_str(), kChanges);
}

void TrackpadArrivals::udevReported() {
  bool isConnected = false;
  while (const auto device = UdevDevice(udev_monitor_receive_device(monitor_.get()))) {
    isConnected = isNewTrackpad(device.get()) || isConnected;
  }
  watchNodes();
  review(isConnected);
}

void TrackpadArrivals::nodesChanged() {
  alignas(inotify_event) std::array<char, 4096> events;
  while (::read(nodes_.get(), events.data(), events.size()) > 0) {
  }
  review(false);
}

void TrackpadArrivals::review(bool isConnected) {
  const auto before = std::exchange(readable_, readableNumbers());
  if (isConnected || !std::ranges::includes(before, readable_)) arrived_();
}

std::set<unsigned> TrackpadArrivals::readableNumbers() const {
  std::set<unsigned> numbers;
  for (const TrackpadNode& trackpad : findTrackpads(folders_)) {
    if (trackpad.isReadable) numbers.insert(trackpad.number);
  }
  return numbers;
}

}  // namespace rondora::desktop
