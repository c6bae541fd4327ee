#include "platform/linux/evdev/evdev_multitouch.h"

#include <utility>

namespace rondora::desktop {

EvdevMultitouch::EvdevMultitouch(TrackpadArrivals::WatchReadable watchReadable, TrackpadReader::NameThread nameThread,
                                 InputFolders folders)
    : watchReadable_(std::move(watchReadable)), folders_(std::move(folders)), reader_(nameThread) {}

std::optional<std::vector<MultitouchDevice>> EvdevMultitouch::createList() {
  nodes_.clear();
  std::vector<MultitouchDevice> devices;
  for (const TrackpadNode& trackpad : findTrackpads(folders_)) {
    if (!trackpad.isReadable) continue;
    devices.push_back(MultitouchDevice{trackpad.number} + 1);  // 0 is none
    nodes_[devices.back()] = trackpad.path;
  }
  return devices;
}

void EvdevMultitouch::registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) {
  callbacks_[device] = std::move(callback);
}

void EvdevMultitouch::unregisterContactFrameCallback(MultitouchDevice device) {
  callbacks_.erase(device);
  reader_.close(device);
}

void EvdevMultitouch::start(MultitouchDevice device) {
  const auto node = nodes_.find(device);
  const auto callback = callbacks_.find(device);
  if (node != nodes_.end() && callback != callbacks_.end()) reader_.open(device, node->second, callback->second);
}

void EvdevMultitouch::stop(MultitouchDevice device) { reader_.close(device); }

Subscription EvdevMultitouch::onArrival(std::function<void()> observer) {
  auto subscription = std::make_shared<Subscription>(arrived_.subscribe(std::move(observer)));
  if (!arrivals_) {
    arrivals_ = std::make_unique<TrackpadArrivals>(folders_, watchReadable_, [this] { arrived_.send(); });
  }
  return Subscription([this, subscription = std::move(subscription)] {
    subscription->reset();
    if (arrived_.size() == 0) arrivals_.reset();
  });
}

}  // namespace rondora::desktop
