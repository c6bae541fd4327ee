#pragma once

#include <filesystem>
#include <vector>

namespace rondora::desktop {

/// Where the kernel lists its input devices: one folder per device in `classes`, the node of the same name in `nodes`.
struct InputFolders {
  std::filesystem::path classes = "/sys/class/input";
  std::filesystem::path nodes = "/dev/input";
};

struct TrackpadNode {
  /// N of "eventN", unique while the device is connected.
  unsigned number = 0;
  std::filesystem::path path;
  /// This process may read it.
  bool isReadable = false;
};

/// The trackpads that are connected now, recognised by their capabilities in sysfs, which every user can read.
std::vector<TrackpadNode> findTrackpads(const InputFolders& folders);

}  // namespace rondora::desktop
