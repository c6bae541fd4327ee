#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "model/pie_sub_action.h"
#include "platform/main_queue.h"
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
  virtual void perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) = 0;
};

/// For systems without access to applications' commands: every application has none.
class NoSubActions final : public SubActions {
 public:
  NoSubActions(Workspace& workspace, MainQueue& mainQueue) : workspace_(workspace), mainQueue_(mainQueue) {}

  std::optional<RunningApplication> targetApp() override { return workspace_.frontmostApplication(); }
  void resolve(const RunningApplication& application, Completion completion) override;
  void prefetch(const RunningApplication&) override {}
  void perform(const PieSubAction&, const std::optional<RunningApplication>&) override {}

 private:
  Workspace& workspace_;
  MainQueue& mainQueue_;
};

}  // namespace rondora
