#include "platform/linux/evdev/input_trackpads.h"

#include <algorithm>

namespace rondora::desktop {

TrackpadAccess InputTrackpads::access() const {
  const auto found = findTrackpads(folders_);
  if (found.empty()) return TrackpadAccess::none;
  return std::ranges::all_of(found, &TrackpadNode::isReadable) ? TrackpadAccess::readable : TrackpadAccess::unreadable;
}

}  // namespace rondora::desktop
