#pragma once

#include "base/observable.h"

namespace rondora {

/// Whether the Fn key is held while a hotkey is recorded; shared by the recorder and those who present it. Main thread.
struct FnGlobeRecordingState {
  CurrentValue<bool> modifierDown{false};
};

}  // namespace rondora
