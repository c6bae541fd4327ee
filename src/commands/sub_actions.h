#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "model/pie_sub_action.h"
#include "platform/workspace.h"

namespace rondora {

/// Finds and runs the commands of an application-commands menu. Main thread; completions run on it too.
class SubActions {
 public:
  using Completion = std::function<void(std::vector<PieSubAction>)>;

  virtual ~SubActions() = default;

  /// The application whose commands a menu would show now.
  virtual std::optional<RunningApplication> targetApp() = 0;
  /// Calls `completion` once, on a later turn of the main loop.
  virtual void resolve(const RunningApplication& application, Completion completion) = 0;
  /// Reads the application's commands before they are needed.
  virtual void prefetch(const RunningApplication& application) = 0;
  /// The commands that `resolve` would answer with at once; nothing when it would wait for the application.
  virtual std::optional<std::vector<PieSubAction>> known(const RunningApplication& application) = 0;
  virtual void perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) = 0;
};

}  // namespace rondora
