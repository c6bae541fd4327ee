#include "actions/macos_system_action_runner.h"

#include "platform/system_applications.h"

namespace rondora {
namespace {

/// The application that carries out the action; nothing for a kind without one.
std::optional<std::string_view> applicationOf(MacOSSystemActionKind kind) {
  switch (kind) {
    case MacOSSystemActionKind::missionControl:
      return system_applications::kMissionControl;
    case MacOSSystemActionKind::startScreenSaver:
      return system_applications::kScreenSaver;
    case MacOSSystemActionKind::applicationWindows:
    case MacOSSystemActionKind::quickNote:
    case MacOSSystemActionKind::displaySleep:
    case MacOSSystemActionKind::lockScreen:
      return std::nullopt;
  }
  return std::nullopt;
}

}  // namespace

void MacOSSystemActionRunner::run(MacOSSystemActionKind kind, const ActionEnded& ended) {
  const auto path = applicationOf(kind);
  if (!path) return;
  const bool isOpen = openApplicationAt(*path);
  if (ended) ended(isOpen ? std::nullopt : std::optional(ActionFailure{ActionProblem::noSystemAction}));
}

bool MacOSSystemActionRunner::canRun(MacOSSystemActionKind kind) const {
  const auto path = applicationOf(kind);
  return path && workspace_.applicationAtPath(*path).has_value();
}

bool MacOSSystemActionRunner::openApplicationAt(std::string_view path) {
  const auto location = workspace_.applicationAtPath(path);
  return location && workspace_.openApplication(*location);
}

}  // namespace rondora
