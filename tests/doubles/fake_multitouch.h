#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <functional>
#include <map>
#include <mutex>
#include <optional>
#include <set>
#include <utility>
#include <vector>

#include "base/observable.h"
#include "platform/multitouch.h"

namespace rondora {

/// Trackpads whose frames a test sends, from any thread.
class FakeMultitouch final : public MultitouchDevices {
 public:
  struct Contact {
    std::int32_t identifier = 0;
    float x = 0;
    float y = 0;
    std::int32_t state = contact_record::touching;
  };

  bool isUsable() const override { return usable; }
  std::optional<std::vector<MultitouchDevice>> createList() override { return connected; }
  void registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) override {
    const std::lock_guard guard(lock_);
    callbacks_[device] = std::move(callback);
  }
  void unregisterContactFrameCallback(MultitouchDevice device) override {
    const std::lock_guard guard(lock_);
    callbacks_.erase(device);
  }
  void start(MultitouchDevice device) override { started.insert(device), ++starts; }
  void stop(MultitouchDevice device) override { started.erase(device); }
  [[nodiscard]] Subscription onArrival(std::function<void()> observer) override {
    return arrival_.subscribe(std::move(observer));
  }
  void arrive() const { arrival_.send(); }
  std::size_t arrivalObservers() const { return arrival_.size(); }

  static std::vector<std::byte> records(const std::vector<Contact>& contacts) {
    std::vector<std::byte> bytes(contacts.size() * contact_record::kSize, std::byte{0xEE});
    std::byte* record = bytes.data();
    for (const Contact& contact : contacts) {
      std::memcpy(record + contact_record::kIdentifierOffset, &contact.identifier, sizeof contact.identifier);
      std::memcpy(record + contact_record::kStateOffset, &contact.state, sizeof contact.state);
      std::memcpy(record + contact_record::kXOffset, &contact.x, sizeof contact.x);
      std::memcpy(record + contact_record::kYOffset, &contact.y, sizeof contact.y);
      record += contact_record::kSize;
    }
    return bytes;
  }
  /// No effect without a callback. A callback may still run when its device is stopped.
  void frame(MultitouchDevice device, const std::vector<Contact>& contacts, double timestamp) {
    const FrameCallback callback = callbackOf(device);
    const auto bytes = records(contacts);
    if (callback) callback(device, bytes.data(), static_cast<std::int32_t>(contacts.size()), timestamp);
  }

  bool usable = true;
  std::optional<std::vector<MultitouchDevice>> connected = std::vector<MultitouchDevice>{1};
  std::set<MultitouchDevice> started;
  int starts = 0;

 private:
  FrameCallback callbackOf(MultitouchDevice device) {
    const std::lock_guard guard(lock_);
    const auto found = callbacks_.find(device);
    return found == callbacks_.end() ? nullptr : found->second;
  }

  std::mutex lock_;
  std::map<MultitouchDevice, FrameCallback> callbacks_;
  Signal<> arrival_;
};

}  // namespace rondora
