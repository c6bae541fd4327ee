#pragma once

#include "platform/trackpads.h"

namespace rondora::macos {

/// The trackpads among the system's devices. Reading them needs no permission.
class ConnectedTrackpads final : public Trackpads {
 public:
  TrackpadAccess access() const override;
};

}  // namespace rondora::macos
