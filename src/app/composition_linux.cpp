#include "app/composition_linux.h"

#include <malloc.h>

#include <QApplication>
#include <QDBusConnection>
#include <memory>
#include <utility>

#include "app/platform.h"
#include "app/program.h"
#include "base/program_identity.h"
#include "input/hotkeys/hotkey_display.h"
#include "platform/linux/accessibility/bus_announcer.h"
#include "platform/linux/desktop/absent_ports.h"
#include "platform/linux/desktop/autostart_entry.h"
#include "platform/linux/desktop/file_user_defaults.h"
#include "platform/linux/desktop/installed_applications.h"
#include "platform/linux/desktop/lock_file_channel.h"
#include "platform/linux/desktop/message_buses.h"
#include "platform/linux/desktop/session_permissions.h"
#include "platform/linux/desktop/switcher_keys.h"
#include "platform/linux/desktop/system_random.h"
#include "platform/linux/desktop/thread_name.h"
#include "platform/linux/desktop/xdg_folders.h"
#include "platform/linux/evdev/evdev_multitouch.h"
#include "platform/linux/evdev/input_trackpads.h"
#include "platform/linux/menus/menu_publishing.h"
#include "platform/linux/menus/published_menus.h"
#include "platform/linux/x11/connection/clipboard_handover.h"
#include "platform/linux/x11/guard/guard_link.h"
#include "platform/linux/x11/overlay/x11_overlay_panel.h"
#include "platform/linux/x11/x11_backends.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process_environment.h"
#include "platform/posix/process_picture_decoder.h"
#include "platform/posix/serial_thread.h"
#include "platform/posix/system_clock.h"
#include "platform/qt/accessibility_status.h"
#include "platform/qt/bus_session_events.h"
#include "platform/qt/event_turns.h"
#include "platform/qt/qt_application_shell.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_native_events.h"
#include "platform/qt/qt_network_fetch.h"
#include "platform/qt/qt_pasteboard.h"
#include "platform/qt/qt_readable_watch.h"
#include "platform/qt/qt_setup.h"
#include "platform/qt/qt_text_order.h"
#include "platform/qt/qt_x11_access.h"
#include "platform/qt/reconnecting_bus.h"
#include "platform/qt/session_bus_channel.h"
#include "storage/legacy_pie_menu_migration.h"
#include "ui/qt/interface/interface_language.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"
#include "ui/qt/tray/qt_status_bar.h"
#include "ui/qt/windows/qt_file_chooser.h"
#include "ui/qt/windows/qt_windows.h"

namespace rondora {
namespace {

/// This program's file, even after it was replaced by another version.
constexpr const char* kOwnFile = "/proc/self/exe";

}  // namespace

/// The program's claim on the session, made before any of the user's files is read or written.
struct CompositionLinux::Presence {
  explicit Presence(Log& log) : instance({&bus, &lockFile}, log) {}

  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{desktop::xdgFolders(environment)};
  bool doesAnswer(desktop::MessageBus which) const {
    return desktop::doesBusAnswer(which, environment, desktop::kMaxBusSilence);
  }
  ReconnectingBus sessionBus{QDBusConnection::SessionBus, [this] { return doesAnswer(desktop::MessageBus::session); }};
  ReconnectingBus systemBus{QDBusConnection::SystemBus, [this] { return doesAnswer(desktop::MessageBus::system); }};
  SessionBusChannel bus{sessionBus, environment.bundleIdentifier()};
  desktop::LockFileChannel lockFile{environment, files.cachesFolder(), watchReadable};
  SingleInstance instance;
};

/// One backend for each port, in order of dependency, and the program on top of them.
struct CompositionLinux::Running {
  Running(const QtX11Access& access, Log& programLog, Presence& ownPresence, x11::InputGuard& guard)
      : log(programLog),
        presence(ownPresence),
        display(access.connection, access.screenNumber, qtPixelsPerPoint(), mainQueue, installed,
                presence.environment.bundleIdentifier()),
        guardLink(guard, display, mainQueue, watchReadable) {
    display.commandAccessibility.setMenus(publishedMenus);
  }

  Platform platform();
  IconSources iconSources() {
    return {[this](std::string_view site) { return program.sitePicture(site); },
            [this](PictureRequest request, PictureDecoder::Completion completion) {
              return program.decodeIcon(std::move(request), std::move(completion));
            }};
  }

  Log& log;
  Presence& presence;
  desktop::FileUserDefaults defaults{presence.files, log};
  desktop::SystemClock clock;
  desktop::SystemRandom random;
  desktop::InstalledApplications installed{presence.environment, watchReadable};
  desktop::InputTrackpads trackpads;
  desktop::NoHaptics haptics;
  desktop::NoSpaceShortcuts spaceShortcuts;
  QtMainQueue mainQueue;
  desktop::EvdevMultitouch multitouch{watchReadable, desktop::nameThread};
  QtApplicationShell shell;
  BusSessionEvents sessionEvents{presence.systemBus, presence.sessionBus};
  accessibility::BusAnnouncer announcer{std::string(program_identity::kName), watchReadable};
  AccessibilityStatus accessibilityStatus{presence.sessionBus,
                                          [this](const auto& address) { announcer.useBus(address); }};
  QtPasteboard pasteboard;
  QtNetworkFetch network;
  desktop::ProcessPictureDecoder pictureDecoder{
      kOwnFile, mainQueue, std::make_unique<desktop::SerialThread>("Rondora.Pictures", desktop::nameThread)};
  QtWindows windows{[this] { return program.windowContents(); },
                    {[this]() -> const ApplicationIcons& { return display.applicationIcons; }, iconSources()}};
  QtFileChooser fileChooser;
  QtTextOrder textOrder;
  menus::PublishedMenus publishedMenus;
  x11::X11Backends display;
  menus::MenuPublishing menuPublishing{std::make_unique<desktop::SerialThread>("Rondora.Menus", desktop::nameThread),
                                       [this] { return display.workspace.runningApplications(); }};
  desktop::SwitcherKeys switcherKeys{{defaults, log,
                                      [this](const TapKey& key) { return display.eventTaps.isRefused(key); },
                                      [this] { return desktop::shortcutSettingsOf(presence.environment); }}};
  desktop::SessionPermissions permissions{display.keyPoster.available(), trackpads, watchReadable};
  desktop::AutostartEntry autostart{presence.environment, presence.files, desktop::ownProgramFile()};
  x11::GuardLink guardLink;
  QtNativeEvents events{[this](const xcb_generic_event_t& event) {
    mainQueue.runWaiting();
    return display.connection.dispatch(event);
  }};
  QtPictureRasterizer rasterizer{display.applicationIcons, iconSources()};
  x11::X11OverlayPanels overlayPanels{display.connection, display.inputGrab, rasterizer};
  QtStatusBar statusBar{
      {[this] { return display.embeddingTray.hasOwner(); },
       [this](std::function<void()> observer) { return display.embeddingTray.onChanged(std::move(observer)); }}};
  Program program{platform()};
};

Platform CompositionLinux::Running::platform() {
  return {
      .log = log,
      .clock = clock,
      .random = random,
      .mainQueue = mainQueue,
      .files = presence.files,
      .defaults = defaults,
      .environment = presence.environment,
      .network = network,
      .pictureDecoder = pictureDecoder,
      .hotkeyService = display.hotkeys,
      .eventTaps = display.eventTaps,
      .secureInput = display.eventTaps,
      .symbolicHotKeySwitch = switcherKeys,
      .eventMonitors = display.eventMonitors,
      .recordingKeyboard = display.recordingKeyboard,
      .keyEvents = display.keyPoster,
      .pointer = display.pointer,
      .screens = display.screens,
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
      .workspace = display.workspace,
      .applications = installed,
      .pasteboard = pasteboard,
      .permissionService = permissions,
      .loginItem = autostart,
      .windowList = display.windowList,
      .frontProcess = display.frontProcess,
      .accessibility = display.accessibility,
      .spaces = display.spaces,
      .symbolicHotKeys = spaceShortcuts,
      .commandAccessibility = display.commandAccessibility,
      .instance = presence.instance,
      .makeSerialQueue =
          [](auto label) { return std::make_unique<desktop::SerialThread>(std::string(label), desktop::nameThread); },
      .wantTrackpads = [this](bool wants) { permissions.wantTrackpads(wants); },
      .wantApplicationMenus = [this](bool wants) { menuPublishing.want(wants); },
      .applicationsWithoutMenus = [this] { return menuPublishing.applicationsWithoutMenus(); },
      .useInterfaceLanguage = useInterfaceLanguage,
      .onInstalledApplicationsChanged =
          [this](std::function<void()> observer) { return installed.onChanged(std::move(observer)); },
      .warmUp =
          [this] {
            installed.warmUp();
            rasterizer.warmUp();
          },
      .handOverClipboard = [this] { x11::handOverClipboard(display.connection, handleEventsUntil); },
      .returnFreeMemory = [] { malloc_trim(0); },
      .modifierNames = kPcModifierNames,
      .pasteKeys = "Ctrl+V"};
}

void CompositionLinux::runLegacyMigration(Log& log) {
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files(desktop::xdgFolders(environment));
  desktop::FileUserDefaults defaults(files, log);
  LegacyPieMenuMigration({files, defaults, environment, log}).run();
}

CompositionLinux::CompositionLinux(QApplication& application, Log& log, x11::InputGuard& guard,
                                   SingleInstance::StartedBy startedBy) {
  configureQt(application, program_identity::kBundleIdentifier);
  const auto access = qtX11Access();
  if (!access) return;
  presence_ = std::make_unique<Presence>(log);
  start_ = presence_->instance.claim(startedBy);
  if (start_ == SingleInstance::Start::first) running_ = std::make_unique<Running>(*access, log, *presence_, guard);
}

CompositionLinux::~CompositionLinux() = default;

void CompositionLinux::start() { running_->program.start(); }

void CompositionLinux::terminate() { running_->program.end(); }

bool CompositionLinux::isRelaunchRequested() const { return running_->shell.isNewInstanceRequested(); }

}  // namespace rondora
