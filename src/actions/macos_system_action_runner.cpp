#include "actions/macos_system_action_runner.h"

#include "platform/system_applications.h"

namespace rondora {

void MacOSSystemActionRunner::run(MacOSSystemActionKind kind) {
  switch (kind) {
    case MacOSSystemActionKind::missionControl:
      return openApplicationAt(system_applications::kMissionControl);
    case MacOSSystemActionKind::startScreenSaver:
      return openApplicationAt(system_applications::kScreenSaver);
    case MacOSSystemActionKind::applicationWindows:
    case MacOSSystemActionKind::quickNote:
    case MacOSSystemActionKind::displaySleep:
    case MacOSSystemActionKind::lockScreen:
      return;
  }
}

void MacOSSystemActionRunner::openApplicationAt(std::string_view path) {
  if (const auto location = workspace_.applicationAtPath(path)) workspace_.openApplication(*location);
}

}  // namespace rondora
