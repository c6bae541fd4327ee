#pragma once

#include <filesystem>

#include "platform/trackpads.h"

namespace rondora::desktop {

/// Trackpads among the kernel's input devices, recognised by their capabilities in sysfs, which every user can read.
class InputTrackpads final : public Trackpads {
 public:
  /// `classFolder` has one folder per input device, `deviceFolder` the node of the same name.
  explicit InputTrackpads(std::filesystem::path classFolder = "/sys/class/input",
                          std::filesystem::path deviceFolder = "/dev/input")
      : classFolder_(std::move(classFolder)), deviceFolder_(std::move(deviceFolder)) {}

  TrackpadAccess access() const override;

 private:
  std::filesystem::path classFolder_;
  std::filesystem::path deviceFolder_;
};

}  // namespace rondora::desktop
