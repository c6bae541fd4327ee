#include "actions/macos_system_action_runner.h"

namespace rondora {
namespace {

constexpr std::string_view kMissionControlPath = "/System/Applications/Mission Control.app";
constexpr std::string_view kScreenSaverPath = "/System/Library/CoreServices/ScreenSaverEngine.app";

}  // namespace

void MacOSSystemActionRunner::run(MacOSSystemActionKind kind) {
  switch (kind) {
    case MacOSSystemActionKind::missionControl:
      return openApplicationAt(kMissionControlPath);
    case MacOSSystemActionKind::startScreenSaver:
      return openApplicationAt(kScreenSaverPath);
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
