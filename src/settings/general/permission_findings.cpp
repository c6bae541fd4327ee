#include "settings/general/permission_findings.h"

#include <string>

namespace rondora {
namespace {

struct Permission {
  StringKey name;
  StringKey use;
  FindingCommand request;
};

constexpr Permission kAccessibility{StringKey::permissionAccessibility, StringKey::permissionAccessibilityUse,
                                    FindingCommand::requestAccessibility};
constexpr Permission kInputMonitoring{StringKey::permissionInputMonitoring, StringKey::permissionInputMonitoringUse,
                                      FindingCommand::requestInputMonitoring};

SessionFinding askedFor(const Permission& permission, bool isGranted, const LocalizationStore& localization) {
  const StringKey state = isGranted ? StringKey::permissionGranted : StringKey::permissionMissing;
  SessionFinding finding{.works = isGranted,
                         .statement = localization.text(state, localization.text(permission.name)),
                         .remedy = std::string(localization.text(permission.use))};
  if (!isGranted) {
    finding.buttons.push_back({permission.request, std::string(localization.text(StringKey::permissionAllow))});
  }
  return finding;
}

}  // namespace

SessionFindings permissionFindings(const PermissionsSnapshot& permissions, const PermissionFacts& facts,
                                   const LocalizationStore& localization) {
  if (facts.asksUser) {
    return {askedFor(kAccessibility, permissions.accessibilityTrusted, localization),
            askedFor(kInputMonitoring, permissions.inputMonitoringGranted, localization)};
  }
  const auto works = [&](StringKey statement) {
    return SessionFinding{.works = true, .statement = std::string(localization.text(statement)), .remedy = {}};
  };
  const auto fails = [&](StringKey statement, StringKey remedy) {
    return SessionFinding{.works = false,
                          .statement = std::string(localization.text(statement)),
                          .remedy = std::string(localization.text(remedy))};
  };
  SessionFindings result;
  result.push_back(permissions.accessibilityTrusted
                       ? works(StringKey::sessionKeystrokes)
                       : fails(StringKey::sessionNoKeystrokes, StringKey::sessionNoKeystrokesRemedy));
  if (facts.trackpads == TrackpadAccess::none) return result;
  result.push_back(!facts.wantsTrackpad ? works(StringKey::permissionTrackpadUnneeded)
                   : permissions.inputMonitoringGranted
                       ? works(StringKey::sessionTrackpad)
                       : fails(StringKey::sessionTrackpadUnreadable, StringKey::sessionTrackpadUnreadableRemedy));
  return result;
}

}  // namespace rondora
