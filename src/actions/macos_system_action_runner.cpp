#include "actions/macos_system_action_runner.h"

#include "platform/system_applications.h"

namespace rondora {

void MacOSSystemActionRunner::run(MacOSSystemActionKind kind, const ActionEnded& ended) {
  const auto open = [&](std::string_view path) {
    const bool isOpen = openApplicationAt(path);
    if (ended) ended(isOpen ? std::nullopt : std::optional(ActionFailure{ActionProblem::noSystemAction}));
  };
  switch (kind) {
    case MacOSSystemActionKind::missionControl:
      return open(system_applications::kMissionControl);
    case MacOSSystemActionKind::startScreenSaver:
      return open(system_applications::kScreenSaver);
    case MacOSSystemActionKind::applicationWindows:
    case MacOSSystemActionKind::quickNote:
    case MacOSSystemActionKind::displaySleep:
    case MacOSSystemActionKind::lockScreen:
      return;
  }
}

bool MacOSSystemActionRunner::openApplicationAt(std::string_view path) {
  const auto location = workspace_.applicationAtPath(path);
  return location && workspace_.openApplication(*location);
}

}  // namespace rondora
