#include "platform/macos/trackpads/multitouch_support.h"

#include <utility>

#include "platform/macos/foundation/private_library.h"
#include "platform/macos/trackpads/trackpad_arrivals.h"

namespace rondora::macos {
namespace {

constexpr const char* kLibraryPath = "/System/Library/PrivateFrameworks/MultitouchSupport.framework/MultitouchSupport";
constexpr int kStartMode = 0;

using Device = void*;
using ContactFrame = int (*)(Device device, const void* records, std::int32_t count, double timestamp,
                             std::int32_t frame);

struct Library {
  explicit Library(const PrivateLibrary& library)
      : createList(library.function<decltype(createList)>("MTDeviceCreateList")),
        registerCallback(library.function<decltype(registerCallback)>("MTRegisterContactFrameCallback")),
        unregisterCallback(library.function<decltype(unregisterCallback)>("MTUnregisterContactFrameCallback")),
        start(library.function<decltype(start)>("MTDeviceStart")),
        stop(library.function<decltype(stop)>("MTDeviceStop")) {}

  bool isComplete() const {
    return createList != nullptr && registerCallback != nullptr && unregisterCallback != nullptr && start != nullptr &&
           stop != nullptr;
  }

  CFArrayRef (*createList)();
  void (*registerCallback)(Device device, ContactFrame callback);
  void (*unregisterCallback)(Device device, ContactFrame callback);
  int (*start)(Device device, int mode);
  int (*stop)(Device device);
};

/// Null unless every function is there.
const Library* library() {
  static const Library kLibrary{PrivateLibrary(kLibraryPath)};
  return kLibrary.isComplete() ? &kLibrary : nullptr;
}

/// Where the library's thread finds whom to call. The lock is held during a call, so that none is under way when a
/// callback has been taken out.
struct Receivers {
  std::mutex lock;
  std::map<MultitouchDevice, MultitouchDevices::FrameCallback> callbacks;
};

/// Never destroyed: a frame may come while the process ends.
Receivers& receivers() {
  static Receivers& instance = *new Receivers;
  return instance;
}

MultitouchDevice keyOf(Device device) { return reinterpret_cast<MultitouchDevice>(device); }
Device deviceOf(MultitouchDevice key) { return reinterpret_cast<Device>(key); }

int deliver(Device device, const void* records, std::int32_t count, double timestamp, std::int32_t /*frame*/) {
  const std::lock_guard guard(receivers().lock);
  const auto found = receivers().callbacks.find(keyOf(device));
  if (found != receivers().callbacks.end()) {
    found->second(found->first, static_cast<const std::byte*>(records), count, timestamp);
  }
  return 0;
}

void forget(MultitouchDevice device) {
  const std::lock_guard guard(receivers().lock);
  receivers().callbacks.erase(device);
}

}  // namespace

MultitouchSupport::MultitouchSupport() = default;

MultitouchSupport::~MultitouchSupport() {
  const std::lock_guard guard(receivers().lock);
  receivers().callbacks.clear();
}

bool MultitouchSupport::isUsable() const { return library() != nullptr; }

std::optional<std::vector<MultitouchDevice>> MultitouchSupport::createList() {
  if (library() == nullptr) return std::nullopt;
  retired_ = std::exchange(list_, CFRef<CFArrayRef>::adopt(library()->createList()));
  if (!list_) return std::nullopt;
  std::vector<MultitouchDevice> devices;
  const CFIndex count = CFArrayGetCount(list_.get());
  for (CFIndex i = 0; i < count; ++i) {
    devices.push_back(reinterpret_cast<MultitouchDevice>(CFArrayGetValueAtIndex(list_.get(), i)));
  }
  return devices;
}

void MultitouchSupport::registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) {
  if (library() == nullptr) return;
  {
    const std::lock_guard guard(receivers().lock);
    receivers().callbacks[device] = std::move(callback);
  }
  library()->registerCallback(deviceOf(device), deliver);
}

// The library is called without the lock: it may wait for the thread that waits for the lock.
void MultitouchSupport::unregisterContactFrameCallback(MultitouchDevice device) {
  if (library() == nullptr) return;
  library()->unregisterCallback(deviceOf(device), deliver);
  forget(device);
}

void MultitouchSupport::start(MultitouchDevice device) {
  if (library() != nullptr) library()->start(deviceOf(device), kStartMode);
}

void MultitouchSupport::stop(MultitouchDevice device) {
  if (library() == nullptr) return;
  library()->stop(deviceOf(device));
  forget(device);
}

Subscription MultitouchSupport::onArrival(std::function<void()> observer) {
  auto subscription = std::make_shared<Subscription>(arrived_.subscribe(std::move(observer)));
  if (!arrivals_) arrivals_ = std::make_unique<TrackpadArrivals>([this] { arrived_.send(); });
  return Subscription([this, subscription = std::move(subscription)] {
    subscription->reset();
    if (arrived_.size() == 0) arrivals_.reset();
  });
}

}  // namespace rondora::macos
