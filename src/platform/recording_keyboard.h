#pragma once

#include <functional>
#include <optional>

#include "base/observable.h"

namespace rondora {

/// The keyboard while the user records a hotkey: every key, also those of hotkeys and of the desktop's own
/// combinations, goes to the program's event monitors and to nothing else. Main thread.
class RecordingKeyboard {
 public:
  struct Observer {
    /// A mouse button was pressed, in any window.
    std::function<void()> onClick;
    /// The keyboard was taken away.
    std::function<void()> onLost;
  };

  virtual ~RecordingKeyboard() = default;

  /// Holds the keyboard until the result is reset or destroyed, which both callbacks may do. Nothing when another
  /// program holds it.
  [[nodiscard]] virtual std::optional<Subscription> take(Observer observer) = 0;
};

}  // namespace rondora
