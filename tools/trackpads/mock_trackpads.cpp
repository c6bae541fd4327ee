#include "trackpads/mock_trackpads.h"

#include <fcntl.h>
#include <sys/stat.h>
#include <umockdev.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <filesystem>
#include <iterator>
#include <stdexcept>
#include <utility>

namespace rondora::live {
namespace {

constexpr const char* kPreload = "libumockdev-preload.so.0";
constexpr int kWidth = 1200;  // units of the device
constexpr int kHeight = 800;

input_absinfo range(int maximum) {
  return {.value = 0, .minimum = 0, .maximum = maximum, .fuzz = 0, .flat = 0, .resolution = 10};
}

MockKernelDevice kernelDevice(MockTrackpad::Kind kind) {
  const int slots = kind == MockTrackpad::Kind::fiveSlots ? 5 : 2;
  std::set<int> properties{INPUT_PROP_POINTER};
  if (kind == MockTrackpad::Kind::box) properties.insert(INPUT_PROP_SEMI_MT);
  std::map<int, input_absinfo> axes{{ABS_X, range(kWidth)}, {ABS_Y, range(kHeight)}};
  if (kind != MockTrackpad::Kind::onePosition) {
    axes.insert({{ABS_MT_SLOT, range(slots - 1)},
                 {ABS_MT_POSITION_X, range(kWidth)},
                 {ABS_MT_POSITION_Y, range(kHeight)},
                 {ABS_MT_TRACKING_ID, range(65535)},
                 {ABS_MT_TOOL_TYPE, range(MT_TOOL_PALM)}});
  }
  return {std::move(properties),
          {BTN_LEFT, BTN_TOUCH, BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP,
           BTN_TOOL_QUINTTAP},
          std::move(axes)};
}

int units(double position, int size) { return static_cast<int>(position * size + 0.5); }

std::string devicePath(int number) {
  return "/sys/devices/pad" + std::to_string(number) + "/input" + std::to_string(number);
}
std::string eventPath(int number) { return devicePath(number) + "/event" + std::to_string(number); }
std::string nodeName(int number) { return "input/event" + std::to_string(number); }

std::string description(int number, const MockKernelDevice& device) {
  const std::string parent = devicePath(number).substr(4), name = "event" + std::to_string(number);
  return "P: " + parent + "/" + name + "\nE: DEVNAME=/dev/" + nodeName(number) +
         "\nE: SUBSYSTEM=input\nE: ID_INPUT=1\nE: ID_INPUT_TOUCHPAD=1\nL: device=../../input" + std::to_string(number) +
         "\n\nP: " + parent + "\nE: SUBSYSTEM=input\nA: properties=" + device.propertiesInSysfs() +
         "\\n\nA: capabilities/key=" + device.keysInSysfs() + "\\n\nA: capabilities/abs=" + device.axesInSysfs() +
         "\\n\n\n";
}

/// The signal "handle-ioctl": true when it was answered.
gboolean serveIoctl(UMockdevIoctlBase* /*handler*/, UMockdevIoctlClient* client, gpointer device) {
  const unsigned long request = umockdev_ioctl_client_get_request(client);
  UMockdevIoctlData* data =
      umockdev_ioctl_data_resolve(umockdev_ioctl_client_get_arg(client), 0, _IOC_SIZE(request), nullptr);
  if (data == nullptr) return FALSE;
  std::vector<std::uint8_t> answer(data->data, data->data + data->data_len);
  const long result = static_cast<MockKernelDevice*>(device)->serve(request, answer);
  if (result >= 0) umockdev_ioctl_data_update(data, 0, answer.data(), static_cast<int>(answer.size()));
  umockdev_ioctl_client_complete(client, result, result < 0 ? ENOENT : 0);
  g_object_unref(data);
  return TRUE;
}

}  // namespace

MockTrackpad::MockTrackpad(Kind kind) : kind_(kind), device_(kernelDevice(kind)) {}

void MockTrackpad::openNode(const std::filesystem::path& node) {
  // Open for reading too: the pipe then exists before and after its readers.
  pipe_ = desktop::FileDescriptor(::open(node.c_str(), O_RDWR | O_CLOEXEC));
  if (!pipe_.isOpen()) throw std::runtime_error("no pipe at " + node.string());
}

void MockTrackpad::frame(Time time, const std::vector<Change>& changes) { write(report(time, changes)); }

void MockTrackpad::loseFrame(Time time, const std::vector<Change>& changes) {
  std::vector<input_event> events = report(time, changes);
  input_event dropped = events.back();
  dropped.code = SYN_DROPPED;
  write({dropped, events.back()});
}

void MockTrackpad::tap(int fingers, Time time) {
  constexpr Time kDuration{100};
  std::vector<Change> down, up;
  for (int finger = 1; finger <= fingers; ++finger) {
    down.push_back({.finger = finger, .x = 0.15 * finger, .y = 0.5});
    up.push_back({.finger = finger, .kind = Change::Kind::lifts});
  }
  frame(time, down);
  frame(time + kDuration, up);
}

std::vector<input_event> MockTrackpad::report(Time time, const std::vector<Change>& changes) {
  for (const Change& change : changes) apply(change);
  if (kind_ == Kind::box) reportBox();
  if (kind_ == Kind::fiveSlots || kind_ == Kind::twoSlots) reportSlots();
  std::erase_if(fingers_, [](const auto& each) { return each.second.trackingId < 0; });
  reportTools();
  return device_.takeEvents(time);
}

void MockTrackpad::write(const std::vector<input_event>& events) {
  const std::size_t size = events.size() * sizeof(input_event);
  if (::write(pipe_.get(), events.data(), size) != static_cast<ssize_t>(size)) {
    throw std::runtime_error("the pipe of the trackpad is full");
  }
}

void MockTrackpad::apply(const Change& change) {
  Finger& finger = fingers_[change.finger];
  if (change.kind == Change::Kind::lifts) {
    finger.trackingId = -1;
  } else if (change.kind == Change::Kind::becomesPalm) {
    finger.isPalm = true;
  } else {
    finger.x = change.x;
    finger.y = change.y;
  }
  if (change.kind == Change::Kind::lifts || finger.slot >= 0) return;
  if (finger.trackingId < 0) finger.trackingId = lastTrackingId_++;
  if (kind_ == Kind::fiveSlots || kind_ == Kind::twoSlots) finger.slot = freeSlot();
}

int MockTrackpad::freeSlot() const {
  for (int slot = 0; slot < (kind_ == Kind::fiveSlots ? 5 : 2); ++slot) {
    if (std::ranges::none_of(fingers_, [slot](const auto& each) { return each.second.slot == slot; })) return slot;
  }
  return -1;
}

void MockTrackpad::reportSlots() {
  for (const auto& [number, finger] : fingers_) {
    if (finger.slot >= 0) reportSlot(finger.slot, finger);
  }
}

/// The corners of a box around the fingers; one finger has a slot of its own.
void MockTrackpad::reportBox() {
  Finger least{.x = 1, .y = 1}, most;
  int down = 0;
  for (const auto& [number, finger] : fingers_) {
    if (finger.trackingId < 0) continue;
    least = {.x = std::min(least.x, finger.x), .y = std::min(least.y, finger.y)};
    most = {.x = std::max(most.x, finger.x), .y = std::max(most.y, finger.y)};
    ++down;
  }
  for (const int slot : {0, 1}) {
    Finger& corner = slot == 0 ? least : most;
    if (down > slot) corner.trackingId = slot;
    reportSlot(slot, corner);
  }
}

void MockTrackpad::reportSlot(int slot, const Finger& finger) {
  device_.changeSlot(slot, ABS_MT_TRACKING_ID, finger.trackingId);
  if (finger.trackingId < 0) return;
  device_.changeSlot(slot, ABS_MT_POSITION_X, units(finger.x, kWidth));
  device_.changeSlot(slot, ABS_MT_POSITION_Y, units(finger.y, kHeight));
  device_.changeSlot(slot, ABS_MT_TOOL_TYPE, finger.isPalm ? MT_TOOL_PALM : MT_TOOL_FINGER);
}

/// What the kernel adds for programs that know no slots.
void MockTrackpad::reportTools() {
  const std::uint16_t tools[] = {BTN_TOOL_FINGER, BTN_TOOL_DOUBLETAP, BTN_TOOL_TRIPLETAP, BTN_TOOL_QUADTAP,
                                 BTN_TOOL_QUINTTAP};
  device_.change(EV_KEY, BTN_TOUCH, fingers_.empty() ? 0 : 1);
  for (std::size_t i = 0; i < std::size(tools); ++i) device_.change(EV_KEY, tools[i], fingers_.size() == i + 1 ? 1 : 0);
  if (fingers_.empty()) return;
  device_.change(EV_ABS, ABS_X, units(fingers_.begin()->second.x, kWidth));
  device_.change(EV_ABS, ABS_Y, units(fingers_.begin()->second.y, kHeight));
}

struct MockTrackpads::Connected {
  explicit Connected(MockTrackpad::Kind kind) : trackpad(kind) {}

  MockTrackpad trackpad;
  UniqueCPtr<UMockdevIoctlBase, g_object_unref> ioctls{umockdev_ioctl_base_new()};
};

MockTrackpads::MockTrackpads() : testbed_(umockdev_testbed_new()) {
  const UniqueCPtr<char, g_free> root(umockdev_testbed_get_root_dir(testbed_.get()));
  root_ = root.get();
  std::filesystem::create_directories(root_ + "/dev/input");
}

MockTrackpads::~MockTrackpads() = default;

std::vector<std::string> MockTrackpads::environment() const {
  return {std::string("LD_PRELOAD=") + kPreload, "UMOCKDEV_DIR=" + root_};
}

MockTrackpad& MockTrackpads::connect(int number, MockTrackpad::Kind kind) {
  Connected& made = *(connected_[number] = std::make_unique<Connected>(kind));
  MockKernelDevice& device = made.trackpad.device();
  if (!umockdev_testbed_add_from_string(testbed_.get(), description(number, device).c_str(), nullptr)) {
    throw std::runtime_error("umockdev does not take the device");
  }
  g_signal_connect(made.ioctls.get(), "handle-ioctl", G_CALLBACK(serveIoctl), &device);
  umockdev_testbed_attach_ioctl(testbed_.get(), ("/dev/" + nodeName(number)).c_str(), made.ioctls.get(), nullptr);
  grant(number);
  announce(number, "add");
  return made.trackpad;
}

void MockTrackpads::disconnect(int number) {
  announce(number, "remove");
  withhold(number);
  umockdev_testbed_detach_ioctl(testbed_.get(), ("/dev/" + nodeName(number)).c_str(), nullptr);
  umockdev_testbed_remove_device(testbed_.get(), eventPath(number).c_str());
  umockdev_testbed_remove_device(testbed_.get(), devicePath(number).c_str());
  connected_.erase(number);
}

void MockTrackpads::withhold(int number) { ::unlink(node(number).c_str()); }

void MockTrackpads::grant(int number) {
  withhold(number);
  if (::mkfifo(node(number).c_str(), S_IRUSR | S_IWUSR) != 0) throw std::runtime_error("no pipe for the node");
  connected_.at(number)->trackpad.openNode(node(number));
}

/// Without the preload library in this process too, umockdev does not find the device that it announces.
void MockTrackpads::announce(int number, const char* action) {
  if (!umockdev_in_mock_environment()) return;
  umockdev_testbed_uevent(testbed_.get(), eventPath(number).c_str(), action);
}

std::string MockTrackpads::node(int number) const { return root_ + "/dev/" + nodeName(number); }

}  // namespace rondora::live
