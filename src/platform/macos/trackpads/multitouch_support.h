#pragma once

#include <CoreFoundation/CoreFoundation.h>

#include <map>
#include <memory>
#include <mutex>

#include "platform/macos/foundation/cf_ref.h"
#include "platform/multitouch.h"

namespace rondora::macos {

class TrackpadArrivals;

/// The private library of trackpads, resolved when it is first used. It reports frames on a thread of its own, without
/// a context, so one object of this class lives at a time.
class MultitouchSupport final : public MultitouchDevices {
 public:
  MultitouchSupport();
  ~MultitouchSupport() override;
  MultitouchSupport(const MultitouchSupport&) = delete;
  MultitouchSupport& operator=(const MultitouchSupport&) = delete;

  bool isUsable() const override;
  std::optional<std::vector<MultitouchDevice>> createList() override;
  void registerContactFrameCallback(MultitouchDevice device, FrameCallback callback) override;
  void unregisterContactFrameCallback(MultitouchDevice device) override;
  void start(MultitouchDevice device) override;
  void stop(MultitouchDevice device) override;
  [[nodiscard]] Subscription onArrival(std::function<void()> observer) override;

 private:
  /// The devices of the last list, which it keeps alive.
  CFRef<CFArrayRef> list_;
  /// Those of the list before: the library may still be at work with a device that has just been stopped.
  CFRef<CFArrayRef> retired_;
  Signal<> arrived_;
  /// While there are observers.
  std::unique_ptr<TrackpadArrivals> arrivals_;
};

}  // namespace rondora::macos
