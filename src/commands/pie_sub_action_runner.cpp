#include "commands/pie_sub_action_runner.h"

#include <algorithm>
#include <string>
#include <utility>

#include "commands/app_menu_command_reader.h"
#include "platform/ax_names.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

/// Seconds. The user has given up by then and may have chosen again.
constexpr double kMaxDelay = 1;

/// In log lines.
std::string nameOf(const PieSubAction& action) {
  if (action.kind != Kind::menuItem) return std::string(rawValue(action.kind));
  std::string path;
  for (const std::string& title : action.menuPath) path.append(path.empty() ? "" : " > ").append(title);
  return "menu item " + path;
}

}  // namespace

std::vector<Rect> PieSubActionRunner::workAreas() const {
  std::vector<Rect> areas;
  for (const Screen& screen : services_.screens.all()) areas.push_back(screen.visibleFrame);
  return areas;
}

void PieSubActionRunner::perform(const PieSubAction& action, const std::optional<RunningApplication>& previousApp) {
  if (!previousApp || !runs(*previousApp)) {
    return services_.log.standard("sub-action: the application of " + nameOf(action) + " has ended");
  }
  if (action.kind == Kind::hideApp) {
    const bool isHidden = services_.workspace.hide(*previousApp);
    ended(action, *previousApp, isHidden ? Outcome() : SubActionProblem::windowKept);
  } else if (action.kind == Kind::quitApp) {
    const bool isAsked = services_.workspace.terminate(*previousApp);
    ended(action, *previousApp, isAsked ? Outcome() : SubActionProblem::refused);
  } else if (action.kind == Kind::menuItem) {
    // Menus act on the window that has the keyboard.
    services_.bringForward(*previousApp, weakSelf_.bind([action, application = *previousApp](PieSubActionRunner& self) {
      self.performOnQueue(action, application);
    }));
  } else {
    performOnQueue(action, *previousApp);
  }
}

bool PieSubActionRunner::runs(const RunningApplication& application) const {
  const auto running = services_.workspace.runningApplications();
  return std::any_of(running.begin(), running.end(),
                     [&application](const RunningApplication& other) { return other.isSameProcess(application); });
}

void PieSubActionRunner::performOnQueue(const PieSubAction& action, const RunningApplication& application) {
  using Self = PieSubActionRunner;
  services_.readings.cancel();
  auto areas = PieSubActionResolver::windowTile(action.kind) ? workAreas() : std::vector<Rect>();
  services_.queue.async([this, action, application, areas = std::move(areas), chosenAt = services_.clock.uptime(),
                         isCancelled = commands_.makeIsCancelled(),
                         ended = weakSelf_.bind([action, application](Self& self, Outcome outcome) {
                           self.ended(action, application, outcome);
                         })] {
    const bool isLate = services_.clock.uptime() - chosenAt > kMaxDelay;
    if (isLate) services_.log.standard("sub-action: " + nameOf(action) + " came too late");
    const Outcome outcome =
        isLate ? SubActionProblem::refused : run(action, application.processIdentifier, areas, isCancelled);
    services_.mainQueue.async([ended, outcome] { ended(outcome); });
  });
}

void PieSubActionRunner::ended(const PieSubAction& action, const RunningApplication& application, Outcome outcome) {
  services_.resolver.commandRan(application);
  if (services_.ended) services_.ended(action, application, outcome);
}

PieSubActionRunner::Outcome PieSubActionRunner::run(const PieSubAction& action, std::int32_t processIdentifier,
                                                    const std::vector<Rect>& areas,
                                                    const std::function<bool()>& isCancelled) {
  if (action.kind == Kind::menuItem) return pressMenuItem(action, processIdentifier, isCancelled);
  const AXElementRef window = WindowAX(services_.accessibility).targetWindow(processIdentifier);
  const Outcome outcome = window ? changeWindow(action.kind, *window, areas) : SubActionProblem::noWindow;
  if (outcome) services_.log.error("sub-action: " + nameOf(action) + " failed");
  return outcome;
}

PieSubActionRunner::Outcome PieSubActionRunner::pressMenuItem(const PieSubAction& action,
                                                              std::int32_t processIdentifier,
                                                              const std::function<bool()>& isCancelled) {
  const bool isTrusted = services_.permissions.isProcessTrusted();
  const double start = services_.clock.uptime();
  AppMenuCommandReader reader(services_.accessibility, services_.clock, isCancelled);
  const auto item = reader.item(processIdentifier, action.menuPath, action.shortcut, isTrusted);
  const std::string name = "sub-action: " + nameOf(action);
  if (!item) {
    services_.log.error(name + " not found");
    const bool hasWaited = services_.clock.uptime() - start >= AppMenuCommandReader::kMessagingTimeout;
    return hasWaited && reader.hasGap() ? SubActionProblem::noAnswer : SubActionProblem::notFound;
  }
  if (!item->isEnabled) {
    services_.log.standard(name + " is disabled");
    return SubActionProblem::disabled;
  }
  if (press(*item->element)) return std::nullopt;
  services_.log.error(name + " was not pressed");
  return SubActionProblem::refused;
}

/// An application that shows a dialog answers when the dialog has ended: no answer in time is no refusal.
bool PieSubActionRunner::press(AXElement& element) {
  constexpr double kTimeout = AppMenuCommandReader::kMessagingTimeout;
  element.setMessagingTimeout(kTimeout);
  const double start = services_.clock.uptime();
  return element.perform(ax::kPress) || services_.clock.uptime() - start >= kTimeout;
}

PieSubActionRunner::Outcome PieSubActionRunner::changeWindow(Kind kind, AXElement& window,
                                                             const std::vector<Rect>& areas) {
  const auto unless = [](bool worked, SubActionProblem problem) { return worked ? Outcome() : problem; };
  if (kind == Kind::closeWindow) {
    const auto button = attributeOf<AXElementRef>(window, ax::kCloseButton);
    return unless(button && *button && press(**button), SubActionProblem::refused);
  }
  if (kind == Kind::minimizeWindow) {
    return unless(window.setAttribute(ax::kMinimized, true), SubActionProblem::windowKept);
  }
  if (kind == Kind::toggleFullScreen) return unless(WindowAX::toggleFullScreen(window), SubActionProblem::windowKept);
  const auto tile = PieSubActionResolver::windowTile(kind);
  return unless(tile && WindowAX::tile(window, *tile, areas), SubActionProblem::windowKept);
}

}  // namespace rondora
