#include "platform/macos/trackpads/trackpad_arrivals.h"

#include <utility>

#include "platform/macos/foundation/run_loop_source.h"
#include "platform/macos/trackpads/trackpad_service.h"

namespace rondora::macos {
namespace {

/// Arms the notification: it fires again only when all devices were taken.
void drain(io_iterator_t devices) {
  while (const io_object_t device = IOIteratorNext(devices)) IOObjectRelease(device);
}

}  // namespace

TrackpadArrivals::TrackpadArrivals(std::function<void()> arrived)
    : arrived_(std::move(arrived)), port_(IONotificationPortCreate(kIOMainPortDefault)) {
  if (port_ == nullptr) return;
  source_ = addToMainRunLoop(CFRef<CFRunLoopSourceRef>::share(IONotificationPortGetRunLoopSource(port_)));
  // The call releases the dictionary.
  if (IOServiceAddMatchingNotification(port_, kIOFirstMatchNotification, IOServiceMatching(kTrackpadClass), handle,
                                       this, &devices_) == KERN_SUCCESS) {
    drain(devices_);
  }
}

TrackpadArrivals::~TrackpadArrivals() {
  if (devices_ != 0) IOObjectRelease(devices_);
  source_.reset();
  if (port_ != nullptr) IONotificationPortDestroy(port_);
}

void TrackpadArrivals::handle(void* context, io_iterator_t devices) {
  drain(devices);
  const auto arrived = static_cast<TrackpadArrivals*>(context)->arrived_;
  arrived();
}

}  // namespace rondora::macos
