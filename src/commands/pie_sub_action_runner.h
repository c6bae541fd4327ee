#pragma once

#include <functional>
#include <optional>
#include <string_view>
#include <vector>

#include "base/geometry.h"
#include "commands/pie_sub_action_resolver.h"
#include "commands/sub_action_failures.h"
#include "commands/sub_actions.h"
#include "platform/accessibility.h"
#include "platform/log.h"
#include "platform/permission_service.h"
#include "platform/screens.h"

namespace rondora {

/// Runs the commands of an application-commands menu: hides and quits applications through the workspace, everything
/// else through their elements on the queue. Main thread.
class PieSubActionRunner final : public SubActions {
 public:
  static constexpr std::string_view kQueueLabel = "Rondora.SubActions.ax";

  using Ended = std::function<void(const PieSubAction&, const RunningApplication&, std::optional<SubActionProblem>)>;

  /// The references must outlive the runner.
  struct Services {
    Workspace& workspace;
    const Screens& screens;
    MainQueue& mainQueue;
    const Clock& clock;
    const PermissionService& permissions;
    Log& log;
    /// Destroyed before the runner, so that its work has ended by then.
    SerialQueue& queue;
    /// Give way to the commands.
    QueueReadings& readings;
    /// Used on the queue only.
    Accessibility& accessibility;
    PieSubActionResolver& resolver;
    /// Brings the application to the front if it is not there, and then calls, at the latest after kMaxFrontmostWait.
    std::function<void(const RunningApplication&, std::function<void()>)> bringForward;
    /// Called on the main thread when a command has worked or failed. May be empty.
    Ended ended;
  };

  explicit PieSubActionRunner(Services services) : services_(std::move(services)) {}

  std::optional<RunningApplication> targetApp() override { return services_.resolver.targetApp(); }
  void resolve(const RunningApplication& application, Completion completion) override {
    services_.resolver.resolve(application, std::move(completion));
  }
  void prefetch(const RunningApplication& application) override { services_.resolver.prefetch(application); }
  std::optional<std::vector<PieSubAction>> known(const RunningApplication& application) override {
    return services_.resolver.known(application);
  }
  void perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) override;

  /// Ends the command that runs, and drops those that wait for it: the program ends.
  void cancel() { commands_.cancel(); }

  /// The usable part of each screen, in the platform's order: points, the origin at the top left of the primary screen.
  std::vector<Rect> workAreas() const;

 private:
  using Outcome = std::optional<SubActionProblem>;

  bool runs(const RunningApplication& application) const;
  void performOnQueue(const PieSubAction& action, const RunningApplication& application);
  void ended(const PieSubAction& action, const RunningApplication& application, Outcome outcome);

  // On the queue:
  Outcome run(const PieSubAction& action, std::int32_t processIdentifier, const std::vector<Rect>& areas,
              const std::function<bool()>& isCancelled);
  Outcome pressMenuItem(const PieSubAction& action, std::int32_t processIdentifier,
                        const std::function<bool()>& isCancelled);
  Outcome changeWindow(AppSubMenuEntry::Kind kind, AXElement& window, const std::vector<Rect>& areas);
  bool press(AXElement& element);

  Services services_;
  QueueReadings commands_;
  WeakSelf<PieSubActionRunner> weakSelf_{this};
};

}  // namespace rondora
