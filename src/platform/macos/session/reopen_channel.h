#pragma once

#include <functional>
#include <utility>

#include "platform/instance_channel.h"

namespace rondora::macos {

/// The system runs one instance of an application and tells it when the user opens it again, so there is nothing to
/// claim, and only the settings can be asked for. An executable file that is started directly is not held back.
class ReopenChannel final : public InstanceChannel {
 public:
  /// Has the function called when the user opens the running program; an empty one ends that.
  using SetReopened = std::function<void(std::function<void()>)>;

  explicit ReopenChannel(SetReopened setReopened) : setReopened_(std::move(setReopened)) {}

  Claim claim() override { return Claim::first; }
  void release() override { setReopened_({}); }
  bool askForSettings() override { return false; }
  void serve(SessionRequests requests) override { setReopened_(std::move(requests.showSettings)); }

 private:
  SetReopened setReopened_;
};

}  // namespace rondora::macos
