#include "permissions/permissions_snapshot.h"

#include <string>

namespace rondora {
namespace {

constexpr std::string_view kOlderPane = "x-apple.systempreferences:com.apple.preference.security?";
constexpr std::string_view kNewerPane = "x-apple.systempreferences:com.apple.settings.PrivacySecurity.extension?";
constexpr std::string_view kAccessibilityAnchor = "Privacy_Accessibility";
constexpr std::string_view kInputMonitoringAnchor = "Privacy_ListenEvent";

}  // namespace

void PermissionsSnapshot::requestAccessibility(const Ports& ports) {
  if (!ports.permissions.isProcessTrusted()) ports.permissions.promptForTrust();
  ports.mainQueue.after(kPaneDelay, [ports] {
    if (!ports.permissions.isProcessTrusted()) openSettingsPane(ports.workspace, kAccessibilityAnchor);
  });
}

void PermissionsSnapshot::requestInputMonitoring(const Ports& ports) {
  if (!ports.permissions.preflightListenEventAccess()) ports.permissions.requestListenEventAccess();
  ports.mainQueue.after(kPaneDelay, [ports] {
    if (!ports.permissions.preflightListenEventAccess()) openSettingsPane(ports.workspace, kInputMonitoringAnchor);
  });
}

void PermissionsSnapshot::openSettingsPane(Workspace& workspace, std::string_view anchor) {
  for (const std::string_view pane : {kOlderPane, kNewerPane}) {
    if (workspace.openUrl(std::string(pane).append(anchor))) return;
  }
}

}  // namespace rondora
