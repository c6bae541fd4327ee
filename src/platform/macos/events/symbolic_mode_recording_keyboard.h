#pragma once

#include "platform/recording_keyboard.h"

namespace rondora::macos {

/// Switches all registered hotkeys off while the program is in front, its own and the desktop's, so that their keys
/// reach its windows. Without permission for Accessibility the system keeps its own. What the program's event tap
/// swallows does not come.
class SymbolicModeRecordingKeyboard final : public RecordingKeyboard {
 public:
  /// Clicks in other applications count, too; leaving the program in any way is the loss.
  [[nodiscard]] std::optional<Subscription> take(Observer observer) override;
};

}  // namespace rondora::macos
