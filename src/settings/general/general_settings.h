#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/observable.h"
#include "localization/localization_store.h"
#include "permissions/launch_at_login_service.h"
#include "permissions/permissions_monitor.h"
#include "platform/desktop_kind.h"
#include "platform/haptics.h"
#include "platform/trackpads.h"
#include "settings/editing/edit_history.h"
#include "settings/findings_watch.h"

namespace rondora {

/// The page of what belongs to the program as a whole: language, start at login, permissions, what failed last. Main
/// thread.
class GeneralSettings {
 public:
  /// The references must outlive the object, and those of `requests` also the delayed check of a request.
  struct Services {
    EditHistory& history;
    const LocalizationStore& localization;
    const Haptics& haptics;
    const Trackpads& trackpads;
    DesktopKind desktop;
    LaunchAtLoginService& login;
    const PermissionsMonitor& permissions;
    PermissionsSnapshot::Ports requests;
    /// Whether the user can see the status item; nothing while it is not known.
    std::function<std::optional<bool>()> showsStatusItem;
    /// What has failed and not worked since, newest first.
    std::function<SessionFindings()> failures;
    /// Carries out the command of a button of these.
    std::function<void(const FindingButton&)> press;
  };

  explicit GeneralSettings(Services services);

  AppLanguage language() const { return services_.history.document().language; }
  void setLanguage(AppLanguage language);

  /// Without a haptic device the switch has no use and is not shown.
  bool hasHaptics() const { return services_.haptics.isAvailable(); }
  bool givesHapticFeedback() const { return services_.history.document().hapticFeedbackEnabled; }
  void setHapticFeedback(bool isOn);

  /// The system's state, which other programs change too.
  bool opensAtLogin() const { return services_.login.opensAtLogin(); }
  void setOpensAtLogin(bool opens);
  /// Why the latest change had no effect; empty when it had.
  std::string loginProblem() const;

  /// Each calls the observer at once and after each change.
  [[nodiscard]] Subscription watchStatusItem(FindingsObserver observer) const;
  [[nodiscard]] Subscription watchPermissions(FindingsObserver observer) const;
  [[nodiscard]] Subscription watchFailures(FindingsObserver observer) const;
  /// Carries out the command of a button of any of them.
  void press(const FindingButton& button) const;

  /// What the program is, its version and its licence.
  std::string purpose() const;
  std::string version() const;
  std::string licence() const;

 private:
  SessionFindings statusItem() const;
  SessionFindings permissions() const;
  SessionFindings failures() const;

  Services services_;
  LoginItemError loginError_;
};

}  // namespace rondora
