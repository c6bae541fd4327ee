#include "settings/general/general_settings.h"

#include <utility>

#include "base/program_identity.h"
#include "settings/general/permission_findings.h"
#include "settings/general/status_item_finding.h"

namespace rondora {

GeneralSettings::GeneralSettings(Services services) : services_(std::move(services)) {}

void GeneralSettings::setLanguage(AppLanguage language) {
  services_.history.edit([language](PieConfiguration& document) { document.language = language; });
}

void GeneralSettings::setHapticFeedback(bool isOn) {
  services_.history.edit([isOn](PieConfiguration& document) { document.hapticFeedbackEnabled = isOn; });
}

void GeneralSettings::setOpensAtLogin(bool opens) { loginError_ = services_.login.setOpenAtLogin(opens); }

std::string GeneralSettings::loginProblem() const {
  return loginError_ ? services_.localization.text(StringKey::startAtLoginFailed, *loginError_) : "";
}

Subscription GeneralSettings::watchStatusItem(FindingsObserver observer) const {
  return watchFindings(
      services_.requests.mainQueue, [this] { return statusItem(); }, std::move(observer));
}

Subscription GeneralSettings::watchPermissions(FindingsObserver observer) const {
  return services_.permissions.snapshot().subscribe(
      [this, observer = std::move(observer)](const PermissionsSnapshot&) { observer(permissions()); });
}

Subscription GeneralSettings::watchFailures(FindingsObserver observer) const {
  return watchFindings(
      services_.requests.mainQueue, [this] { return failures(); }, std::move(observer));
}

SessionFindings GeneralSettings::statusItem() const {
  const auto shows = services_.showsStatusItem();
  if (!shows) return {};
  return {statusItemFinding(*shows, services_.desktop, services_.localization)};
}

SessionFindings GeneralSettings::permissions() const {
  return permissionFindings(services_.permissions.snapshot().value(),
                            {.asksUser = services_.requests.permissions.asksUser(),
                             .wantsTrackpad = !services_.history.document().trackpadGestureTargets().empty(),
                             .trackpads = services_.trackpads.access()},
                            services_.localization);
}

SessionFindings GeneralSettings::failures() const {
  SessionFindings all = services_.failures();
  if (!all.empty()) return all;
  return {
      {.works = true, .statement = std::string(services_.localization.text(StringKey::failuresNone)), .remedy = {}}};
}

void GeneralSettings::press(const FindingButton& button) const {
  switch (button.command) {
    case FindingCommand::requestAccessibility:
      return PermissionsSnapshot::requestAccessibility(services_.requests);
    case FindingCommand::requestInputMonitoring:
      return PermissionsSnapshot::requestInputMonitoring(services_.requests);
    default:
      return services_.press(button);
  }
}

std::string GeneralSettings::purpose() const {
  return std::string(services_.localization.text(StringKey::onboardingWhatItIs));
}

std::string GeneralSettings::version() const {
  return services_.localization.text(StringKey::aboutVersion, program_identity::version());
}

std::string GeneralSettings::licence() const {
  return std::string(services_.localization.text(StringKey::aboutLicence));
}

}  // namespace rondora
