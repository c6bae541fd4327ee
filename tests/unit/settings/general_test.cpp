#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/fake_workspace.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "settings/general/general_settings.h"

namespace rondora {
namespace {

std::string shown(const SessionFindings& findings) {
  Words words;
  for (const SessionFinding& finding : findings) {
    words.push_back((finding.works ? "+" : "-") + finding.statement);
    for (const FindingButton& button : finding.buttons) words.push_back("[" + button.title + "]");
  }
  return joined(words);
}

struct GeneralStory : Story {
  using W = const Words&;

  GeneralStory() {
    watchPermissions();
    actions = {
        {"language", [this](W w) { general.setLanguage(*appLanguageFromRawValue(w[0])); }},
        {"german", [this](W) { localization.setLanguage(AppLanguage::german); }},
        {"haptics", [this](W w) { general.setHapticFeedback(w[0] == "on"); }},
        {"unplug", [this](W) { haptics.hasDevice = false; }},
        {"undo", [this](W) { history.undo(); }},
        {"login", [this](W w) { general.setOpensAtLogin(w[0] == "on"); }},
        {"refuse", [this](W w) { loginItem.error = w.empty() ? LoginItemError() : w[0]; }},
        {"grant", [this](W w) { permit(w[0], true); }},
        {"revoke", [this](W w) { permit(w[0], false); }},
        {"administrator", [this](W) { permissions.hasPages = false; }},
        {"trackpad", [this](W) { trackpads.state = TrackpadAccess::unreadable; }},
        {"refresh", [this](W) { watchPermissions(); }},
        {"tap",
         [this](W w) { history.edit([&](PieConfiguration& d) { d.menus[0].trackpadFingerCount = std::stoi(w[0]); }); }},
        {"press", [this](W w) { general.press(seenPermissions.at(std::stoul(w[0])).buttons.at(0)); }},
        {"tray", [this](W w) { tray = w[0] == "shown"; }},
        {"fail",
         [this](W w) {
           failures = {{false, w[0], "Mend it", {{FindingCommand::dismiss, "Dismiss", "/old.json"}}}};
         }},
        {"dismiss", [this](W) { general.press(seenFailures.at(0).buttons.at(0)); }},
        {"wait", [this](W w) { time.advance(std::stod(w[0])); }}};
    observations = {{"document",
                     [this] {
                       const PieConfiguration& document = history.document();
                       return joined({std::string(rawValue(document.language)),
                                      document.hapticFeedbackEnabled ? "haptic" : "silent"});
                     }},
                    {"switch", [this] { return yesOrNo(general.hasHaptics()); }},
                    {"login",
                     [this] {
                       const std::string problem = general.loginProblem();
                       return std::string(general.opensAtLogin() ? "on" : "off") +
                              (problem.empty() ? "" : " " + problem);
                     }},
                    {"permissions", [this] { return shown(seenPermissions); }},
                    {"asked",
                     [this] {
                       return std::to_string(permissions.trustPrompts + permissions.listenRequests) + " prompts, " +
                              std::to_string(workspace.openedUrls.size()) + " panes";
                     }},
                    {"tray", [this] { return shown(seenTray); }},
                    {"failures", [this] { return shown(seenFailures); }}};
  }
  void watchPermissions() {
    permissionsWatch = general.watchPermissions([this](const auto& all) { seenPermissions = all; });
  }
  void permit(const std::string& permission, bool isGranted) {
    (permission == "accessibility" ? permissions.trusted : permissions.mayListen) = isGranted;
    monitor.refresh();
  }

  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  ConfigManager config{{files, time, log, random, notifications}};
  EditSession session{config, time};
  EditHistory history{session, config, time};
  LocalizationStore localization;
  FakeHaptics haptics;
  FakeTrackpads trackpads;
  FakeLoginItem loginItem;
  LaunchAtLoginService login{loginItem};
  FakePermissionService permissions;
  FakeWorkspace workspace;
  FakeApplicationShell shell;
  PermissionsMonitor monitor{permissions, time, shell};
  std::optional<bool> tray;
  SessionFindings failures;
  GeneralSettings general{{history,
                           localization,
                           haptics,
                           trackpads,
                           DesktopKind::x11,
                           login,
                           monitor,
                           {permissions, workspace, time},
                           [this] { return tray; },
                           [this] { return failures; },
                           [this](const FindingButton&) { failures.clear(); }}};
  SessionFindings seenPermissions, seenTray, seenFailures;
  Subscription permissionsWatch;
  Subscription trayWatch = general.watchStatusItem([this](const auto& all) { seenTray = all; });
  Subscription failuresWatch = general.watchFailures([this](const auto& all) { seenFailures = all; });
};

TEST(GeneralSettings, Stories) { playStories<GeneralStory>("settings_general"); }

}  // namespace
}  // namespace rondora
