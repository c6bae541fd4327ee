#pragma once

#include <utility>

#include "platform/linux/evdev/trackpad_nodes.h"
#include "platform/trackpads.h"

namespace rondora::desktop {

/// Trackpads among the kernel's input devices.
class InputTrackpads final : public Trackpads {
 public:
  explicit InputTrackpads(InputFolders folders = {}) : folders_(std::move(folders)) {}

  TrackpadAccess access() const override;

 private:
  InputFolders folders_;
};

}  // namespace rondora::desktop
