#include "app/composition_macos.h"

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "app/composition_macos_settings.h"
#include "app/platform.h"
#include "app/program.h"
#include "input/hotkeys/crash_safe_hot_key_switch.h"
#include "input/hotkeys/hotkey_display.h"
#include "platform/curl/curl_network_fetch.h"
#include "platform/macos/accessibility/ax_accessibility.h"
#include "platform/macos/applications/appkit_application_icons.h"
#include "platform/macos/applications/appkit_workspace.h"
#include "platform/macos/applications/installed_applications.h"
#include "platform/macos/events/appkit_event_monitors.h"
#include "platform/macos/events/appkit_pointer.h"
#include "platform/macos/events/appkit_screens.h"
#include "platform/macos/events/symbolic_mode_recording_keyboard.h"
#include "platform/macos/events/trackpad_haptics.h"
#include "platform/macos/events/voice_over_announcer.h"
#include "platform/macos/foundation/activity.h"
#include "platform/macos/foundation/dispatch_serial_queue.h"
#include "platform/macos/foundation/end_signals.h"
#include "platform/macos/foundation/library_folders.h"
#include "platform/macos/foundation/locale_text_order.h"
#include "platform/macos/foundation/own_file.h"
#include "platform/macos/foundation/preferences.h"
#include "platform/macos/foundation/run_loop_queue.h"
#include "platform/macos/foundation/system_random.h"
#include "platform/macos/keyboard/carbon_hotkey_service.h"
#include "platform/macos/keyboard/carbon_secure_input.h"
#include "platform/macos/keyboard/quartz_event_taps.h"
#include "platform/macos/keyboard/quartz_key_event_poster.h"
#include "platform/macos/keyboard/symbolic_hot_key_preferences.h"
#include "platform/macos/permissions/app_service_login_item.h"
#include "platform/macos/permissions/privacy_permissions.h"
#include "platform/macos/session/general_pasteboard.h"
#include "platform/macos/session/reopen_channel.h"
#include "platform/macos/session/workspace_session_events.h"
#include "platform/macos/trackpads/connected_trackpads.h"
#include "platform/macos/trackpads/multitouch_support.h"
#include "platform/macos/window_server/quartz_window_list.h"
#include "platform/macos/window_server/sky_light_front_process.h"
#include "platform/macos/window_server/sky_light_hot_key_switch.h"
#include "platform/macos/window_server/sky_light_spaces.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process_environment.h"
#include "platform/posix/process_picture_decoder.h"
#include "platform/posix/system_clock.h"
#include "storage/legacy_pie_menu_migration.h"
#include "ui/appkit/application/appkit_application_shell.h"
#include "ui/appkit/application/interface_language.h"
#include "ui/appkit/overlay/appkit_overlay_panel.h"
#include "ui/appkit/painting/core_graphics_rasterizer.h"
#include "ui/appkit/status_bar/appkit_status_bar.h"
#include "ui/appkit/windows/appkit_file_chooser.h"
#include "ui/appkit/windows/appkit_windows.h"

namespace rondora {
namespace {

std::unique_ptr<SerialQueue> makeSerialQueue(std::string_view label) {
  return std::make_unique<macos::DispatchSerialQueue>(std::string(label));
}

}  // namespace

/// One backend for each port, in order of dependency, and the program on top of them.
struct CompositionMacOS::Running {
  explicit Running(Log& programLog) : log(programLog) {}

  Platform platform();
  IconSources iconSources() {
    return {[this](std::string_view site) { return program.sitePicture(site); },
            [this](PictureRequest request, PictureDecoder::Completion completion) {
              return program.decodeIcon(std::move(request), std::move(completion));
            }};
  }

  Log& log;
  macos::Activity activity;
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{macos::libraryFolders()};
  macos::Preferences defaults;
  desktop::SystemClock clock;
  macos::SystemRandom random;
  macos::RunLoopQueue mainQueue;
  appkit::AppKitApplicationShell shell;
  macos::ReopenChannel reopenChannel{
      [this](std::function<void()> reopened) { shell.setReopened(std::move(reopened)); }};
  SingleInstance instance{{&reopenChannel}, log};
  SingleInstance::Start start = instance.claim();
  desktop::CurlNetworkFetch network{clock, mainQueue, makeSerialQueue};
  desktop::ProcessPictureDecoder pictureDecoder{macos::ownFile(), mainQueue, makeSerialQueue("Rondora.Pictures")};
  macos::CarbonHotkeyService hotkeys;
  macos::QuartzEventTaps eventTaps;
  macos::CarbonSecureInput secureInput;
  macos::SkyLightHotKeySwitch systemHotKeySwitch;
  CrashSafeHotKeySwitch hotKeySwitch{systemHotKeySwitch, defaults};
  macos::SymbolicHotKeyPreferences symbolicHotKeys;
  macos::QuartzKeyEventPoster keyEvents;
  macos::AppKitEventMonitors eventMonitors;
  macos::SymbolicModeRecordingKeyboard recordingKeyboard;
  macos::AppKitPointer pointer;
  macos::AppKitScreens screens;
  macos::TrackpadHaptics haptics;
  macos::VoiceOverAnnouncer announcer;
  macos::ConnectedTrackpads trackpads;
  macos::MultitouchSupport multitouch;
  macos::WorkspaceSessionEvents sessionEvents;
  macos::AppKitWorkspace workspace;
  macos::AppKitApplicationIcons applicationIcons;
  macos::InstalledApplications installed;
  macos::GeneralPasteboard pasteboard;
  macos::PrivacyPermissions permissions;
  macos::AppServiceLoginItem loginItem;
  macos::QuartzWindowList windowList;
  macos::SkyLightFrontProcess frontProcess;
  macos::SkyLightSpaces spaces;
  macos::AXAccessibility accessibility{clock};
  macos::AXAccessibility commandAccessibility{clock};
  macos::LocaleTextOrder textOrder;
  appkit::CoreGraphicsRasterizer rasterizer{applicationIcons, iconSources()};
  appkit::AppKitOverlayPanels overlayPanels{rasterizer, mainQueue};
  appkit::AppKitStatusBar statusBar;
  appkit::AppKitFileChooser fileChooser;
  std::unique_ptr<appkit::SettingsShell> settings =
      makeSettingsShell(applicationIcons, iconSources(), [this] { return program.config().configURL(); });
  /// Before the program, which then has the icons shown again.
  Subscription applicationsChanged = installed.onChanged([this] {
    rasterizer.forgetApplications();
    settings->forgetApplications();
  });
  appkit::AppKitWindows windows{
      {.mainQueue = mainQueue, .contents = [this] { return program.windowContents(); }, .settings = *settings}};
  Program program{platform()};
  macos::EndSignals endSignals{[this] { shell.terminate(); }};
};

Platform CompositionMacOS::Running::platform() {
  return {.log = log,
          .clock = clock,
          .random = random,
          .mainQueue = mainQueue,
          .files = files,
          .defaults = defaults,
          .environment = environment,
          .network = network,
          .pictureDecoder = pictureDecoder,
          .hotkeyService = hotkeys,
          .eventTaps = eventTaps,
          .secureInput = secureInput,
          .symbolicHotKeySwitch = hotKeySwitch,
          .eventMonitors = eventMonitors,
          .recordingKeyboard = recordingKeyboard,
          .keyEvents = keyEvents,
          .pointer = pointer,
          .screens = screens,
          .haptics = haptics,
          .trackpads = trackpads,
          .multitouch = multitouch,
          .overlayPanels = overlayPanels,
          .announcer = announcer,
          .statusBar = statusBar,
          .windows = windows,
          .fileChooser = fileChooser,
          .textOrder = textOrder,
          .shell = shell,
          .sessionEvents = sessionEvents,
          .workspace = workspace,
          .applications = installed,
          .pasteboard = pasteboard,
          .permissionService = permissions,
          .loginItem = loginItem,
          .windowList = windowList,
          .frontProcess = frontProcess,
          .accessibility = accessibility,
          .spaces = spaces,
          .symbolicHotKeys = symbolicHotKeys,
          .commandAccessibility = commandAccessibility,
          .instance = instance,
          .makeSerialQueue = makeSerialQueue,
          .wantTrackpads = {},
          .wantApplicationMenus = {},
          .applicationsWithoutMenus = {},
          .useInterfaceLanguage = appkit::useInterfaceLanguage,
          .onInstalledApplicationsChanged =
              [this](std::function<void()> observer) { return installed.onChanged(std::move(observer)); },
          .warmUp = [this] { rasterizer.warmUp(); },
          // The system keeps the pasteboard.
          .handOverClipboard = {},
          .desktop = DesktopKind::macOS,
          .modifierNames = kMacModifierNames,
          .pasteKeys = "Cmd+V"};
}

void CompositionMacOS::runLegacyMigration(Log& log) {
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files(macos::libraryFolders());
  macos::Preferences defaults;
  LegacyPieMenuMigration({files, defaults, environment, log}).run();
}

CompositionMacOS::CompositionMacOS(Log& log) : running_(std::make_unique<Running>(log)) {}

CompositionMacOS::~CompositionMacOS() = default;

void CompositionMacOS::run() {
  running_->shell.run([this] { running_->program.start(); }, [this] { running_->program.end(); });
}

}  // namespace rondora
