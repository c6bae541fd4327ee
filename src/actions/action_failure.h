#pragma once

#include <functional>
#include <optional>
#include <string>

namespace rondora {

enum class ActionProblem {
  notInstalled,      // detail: the application
  noDefault,         // detail: the content type or URL scheme that no application opens
  cannotStart,       // detail: the application
  endedAtOnce,       // with an error, without a window; detail: the application
  notAnAddress,      // detail: the text
  noHandler,         // detail: the address
  noSystemAction,    // of this desktop
  keysRefused,       // by the system, from programs
  noSuchKey,         // on the keyboard
  targetNotInFront,  // while the key could still be typed
};

/// Why an action did nothing.
struct ActionFailure {
  ActionProblem problem = ActionProblem::notInstalled;
  std::string detail = {};
  friend bool operator==(const ActionFailure&, const ActionFailure&) = default;
};

/// Receives the failure of an action, or nothing when it worked.
using ActionEnded = std::function<void(const std::optional<ActionFailure>&)>;

}  // namespace rondora
