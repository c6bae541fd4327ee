#include "app/composition_linux.h"

#include <QApplication>
#include <QDBusConnection>
#include <QSocketNotifier>
#include <QUrl>
#include <algorithm>
#include <chrono>
#include <string>
#include <utility>
#include <vector>

#include "app/action_services.h"
#include "app/app_delegate.h"
#include "app/item_titles.h"
#include "app/session_report.h"
#include "app/single_instance.h"
#include "icons/favicons.h"
#include "input/hotkeys/hotkey_display.h"
#include "permissions/permissions_monitor.h"
#include "platform/haptics.h"
#include "platform/linux/desktop/file_user_defaults.h"
#include "platform/linux/desktop/installed_applications.h"
#include "platform/linux/desktop/lock_file_channel.h"
#include "platform/linux/desktop/system_clock.h"
#include "platform/linux/desktop/system_random.h"
#include "platform/linux/evdev/input_trackpads.h"
#include "platform/linux/x11/connection/clipboard_handover.h"
#include "platform/linux/x11/connection/selection_owner_watch.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_event_monitors.h"
#include "platform/linux/x11/keyboard/x11_hotkey_service.h"
#include "platform/linux/x11/overlay/x11_overlay_panel.h"
#include "platform/linux/x11/overlay/x11_pointer.h"
#include "platform/linux/x11/overlay/x11_screens.h"
#include "platform/linux/x11/typing/xtest_key_poster.h"
#include "platform/linux/x11/windows/x11_accessibility.h"
#include "platform/linux/x11/windows/x11_application_icons.h"
#include "platform/linux/x11/windows/x11_front_process.h"
#include "platform/linux/x11/windows/x11_window_list.h"
#include "platform/linux/x11/windows/x11_workspace.h"
#include "platform/posix/posix_file_system.h"
#include "platform/posix/posix_process_environment.h"
#include "platform/posix/serial_thread.h"
#include "platform/qt/event_turns.h"
#include "platform/qt/qt_application_shell.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_native_events.h"
#include "platform/qt/qt_network_fetch.h"
#include "platform/qt/qt_pasteboard.h"
#include "platform/qt/qt_setup.h"
#include "platform/qt/qt_x11_access.h"
#include "platform/qt/session_bus_channel.h"
#include "storage/debounced_save.h"
#include "storage/legacy_pie_menu_migration.h"
#include "ui/qt/painting/qt_picture_codec.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"
#include "ui/qt/tray/qt_status_bar.h"
#include "ui/qt/windows/interface_language.h"
#include "ui/qt/windows/qt_windows.h"

namespace rondora {
namespace {

/// A clipboard manager that hangs must not keep the program.
constexpr std::chrono::seconds kLongestHandover{1};

/// No pointing device of this desktop can be felt.
class NoHaptics final : public Haptics {
 public:
  void perform(HapticPattern) override {}
};

/// X11 asks nobody's leave for listening, nor for synthetic input where the server can make it.
class X11Permissions final : public PermissionService {
 public:
  explicit X11Permissions(bool canMakeInput) : canMakeInput_(canMakeInput) {}

  bool isProcessTrusted() const override { return canMakeInput_; }
  bool preflightListenEventAccess() const override { return true; }
  void requestListenEventAccess() override {}

 private:
  const bool canMakeInput_;
};

/// Desktops are switched by activating a window; no shortcut of the window manager needs to be pressed.
class NoSpaceShortcuts final : public SymbolicHotKeys {
 public:
  std::optional<SymbolicHotKey> symbolicHotKey(int /*number*/) const override {
    return SymbolicHotKey{false, std::nullopt};
  }
};

Subscription watchReadable(int descriptor, std::function<void()> readable) {
  const auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(readable));
  return Subscription([notifier] { notifier->setEnabled(false); });
}

}  // namespace

/// The program's place in the session, taken before anything of the user's is read or written.
struct CompositionLinux::Presence {
  explicit Presence(Log& log) : instance({&bus, &lockFile}, log) {}

  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{environment};
  SessionBusChannel bus{QDBusConnection::sessionBus(), environment.bundleIdentifier()};
  desktop::LockFileChannel lockFile{environment, files.cachesFolder(), watchReadable};
  SingleInstance instance;
};

struct CompositionLinux::Program {
  Program(const QtX11Access& access, Log& programLog)
      : log(programLog),
        connection(access.connection, access.screenNumber, qtPixelsPerPoint()),
        events([this](const xcb_generic_event_t& event) {
          mainQueue.runWaiting();
          return connection.dispatch(event);
        }) {}

  PieMenuWindowController::Environment ringEnvironment() {
    return {[this] { return config.current().hapticFeedbackEnabled; },
            [this](const PieMenuItem& item) { return titles.title(item); }};
  }

  std::string text(StringKey key) const { return std::string(localization.text(key)); }

  /// The hotkey of the first menu that one opens, which a newcomer opens first; empty when none does.
  std::string firstHotkey() const {
    const HotkeyManager* manager = delegate.hotkeyManager();
    const PieMenu* menu = manager == nullptr ? nullptr : firstMenuWithWorkingHotkey(config.current().menus, *manager);
    return menu == nullptr ? std::string() : displayString(menu->hotkey, localization.language(), kPcModifierNames);
  }

  /// With the keys that paste on this system.
  std::string snippetHint() const {
    constexpr std::string_view kWritten = "Command+V";
    std::string hint = text(StringKey::snippetHint);
    if (const auto at = hint.find(kWritten); at != std::string::npos) hint.replace(at, kWritten.size(), "Ctrl+V");
    return hint;
  }

  WindowTexts windowTexts() const {
    WindowTexts texts;
    texts.settingsTitle = text(StringKey::settingsTitle);
    texts.settingsIntroduction = text(StringKey::onboardingWhatItIs);
    texts.documentHeading = text(StringKey::settingsConfigurationFile);
    texts.openFolder = text(StringKey::settingsOpenFolder);
    texts.language = text(StringKey::settingsLanguage);
    texts.copy = text(StringKey::settingsCopy);
    texts.sessionHeading = text(StringKey::settingsSession);
    texts.works = text(StringKey::sessionWorks);
    texts.fails = text(StringKey::sessionFails);
    texts.quit = text(StringKey::quit);
    texts.close = text(StringKey::settingsClose);
    texts.onboardingTitle = text(StringKey::onboardingTitle);
    texts.onboardingHeadline = text(StringKey::onboardingGreeting);
    texts.onboardingIntroduction = text(StringKey::onboardingWhatItIs);
    texts.onboardingHotkey = firstHotkey();
    texts.onboardingHowToOpen = localization.text(StringKey::onboardingHowToOpen, texts.onboardingHotkey);
    texts.onboardingHowToChoose = text(StringKey::onboardingHowToChoose);
    texts.onboardingWhereItLives =
        localization.text(StringKey::onboardingConfigurationFile, config.configURL().string());
    texts.onboardingDone = text(StringKey::onboardingGetStarted);
    texts.snippetHint = snippetHint();
    return texts;
  }

  void openDocumentFolder() {
    const QString folder = QString::fromStdString(config.configURL().parent_path().string());
    workspace.openUrl(QUrl::fromLocalFile(folder).toEncoded().toStdString());
  }

  /// A snippet outlives the program where a clipboard manager takes it.
  void handOverClipboard() {
    x11::ClipboardHandover handover(connection);
    if (handover.begin()) handleEventsUntil([&handover] { return handover.hasEnded(); }, kLongestHandover);
  }

  SessionFacts sessionFacts() const {
    return {isWaylandSession(environment), !statusItemProblem, permissionService.isProcessTrusted(),
            trackpads.access()};
  }

  void chooseLanguage(AppLanguage language) {
    PieConfiguration edited = config.current();
    edited.language = language;
    settingsEdits.edit(std::move(edited));
  }

  WindowContents windowContents() {
    return {[this] { return windowTexts(); },
            [this](std::function<void()> observer) {
              return notifications.addObserver(ConfigManager::configurationDidChange, std::move(observer));
            },
            config.configURL().string(),
            [this] { openDocumentFolder(); },
            [this] { return localization.language(); },
            [this](AppLanguage language) { chooseLanguage(language); },
            [this] { delegate.quitApp(); },
            [this] { return report.findings(sessionFacts(), config.current(), delegate.hotkeyManager()); }};
  }

  SessionRequests sessionRequests() {
    return {[this] { delegate.applicationShouldHandleReopen(false); },
            [this](std::string_view menuId) { return delegate.trigger(menuId); }};
  }

  Log& log;
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{environment};
  desktop::FileUserDefaults defaults{files, log};
  desktop::SystemClock clock;
  desktop::SystemRandom random;
  QtMainQueue mainQueue;

  x11::X11Connection connection;
  QtNativeEvents events;
  x11::X11Keymap keymap{connection, mainQueue};
  x11::RawKeyReleases rawKeyReleases{connection};
  x11::X11KeyStream keyboard{connection, rawKeyReleases, mainQueue};
  x11::X11HotkeyService hotkeys{connection, keymap, keyboard};
  x11::X11EventMonitors eventMonitors{keymap, keyboard};
  x11::X11InputGrab inputGrab{connection, keyboard, mainQueue};
  x11::X11Pointer pointer{connection, inputGrab};
  x11::X11Screens screens{connection, mainQueue};
  desktop::InstalledApplications installed{environment};
  x11::X11ClientWindows clientWindows{connection};
  x11::X11Workspace workspace{connection, clientWindows, installed, environment.bundleIdentifier()};
  x11::X11ApplicationIcons applicationIcons{installed, clientWindows, workspace};
  QtNetworkFetch network;
  QtPictureCodec pictureCodec;
  Favicons favicons{{network, pictureCodec, files, clock, mainQueue}};
  QtPictureRasterizer rasterizer{applicationIcons, [this](std::string_view site) { return favicons.picture(site); }};
  x11::X11OverlayPanels overlayPanels{connection, inputGrab, rasterizer};
  NoHaptics haptics;
  x11::XTestKeyPoster keyPoster{connection, keymap, keyboard, rawKeyReleases};
  x11::WindowOwners windowOwners;
  x11::X11WindowList windowList{connection, clientWindows, workspace, windowOwners};
  x11::X11FrontProcess frontProcess{connection, clientWindows, workspace, windowOwners};
  x11::WorkerConnection workerConnection{connection.pixelsPerPoint()};
  x11::X11Accessibility accessibility{workerConnection, windowOwners};
  x11::X11Spaces spaces{workerConnection};
  NoSpaceShortcuts spaceShortcuts;
  X11Permissions permissionService{keyPoster.available()};
  QtApplicationShell shell;
  x11::SelectionOwnerWatch embeddingTray{connection, "_NET_SYSTEM_TRAY"};
  QtStatusBar statusBar{
      {[this] { return embeddingTray.hasOwner(); },
       [this](std::function<void()> observer) { return embeddingTray.onChanged(std::move(observer)); }}};
  QtPasteboard pasteboard;

  NotificationCenter notifications;
  ConfigManager config{{files, clock, log, random, notifications}};
  DebouncedSave settingsEdits{config, mainQueue};
  LocalizationStore localization;
  Subscription interfaceLanguage = localization.currentLanguage().subscribe(useInterfaceLanguage);
  PermissionsMonitor permissions{permissionService, mainQueue, shell};
  RunningAppsActivationHistory activationHistory{workspace};
  RunningAppsMenuItems runningAppsMenuItems{workspace, activationHistory, environment.bundleIdentifier()};
  ActionServices actions{{workspace, pasteboard, permissionService, keyPoster, windowList, frontProcess, accessibility,
                          spaces, spaceShortcuts, mainQueue, clock, log},
                         std::make_unique<desktop::SerialThread>(std::string(RunningAppFocus::kQueueLabel))};
  NoSubActions subActions{workspace, mainQueue};
  ItemTitles titles{workspace};
  Subscription faviconPrefetch = config.configuration().subscribe(
      [this](const PieConfiguration& configuration) { favicons.prefetch(configuration); });
  std::optional<std::string> statusItemProblem;
  desktop::InputTrackpads trackpads;
  SessionReport report{localization, kPcModifierNames};
  QtWindows windows{windowContents()};
  AppDelegate delegate{AppServices{mainQueue,
                                   log,
                                   random,
                                   defaults,
                                   environment,
                                   workspace,
                                   screens,
                                   hotkeys,
                                   eventMonitors,
                                   statusBar,
                                   windows,
                                   shell,
                                   permissionService,
                                   notifications,
                                   config,
                                   localization,
                                   permissions.snapshot(),
                                   activationHistory,
                                   runningAppsMenuItems,
                                   actions.appLauncher,
                                   subActions,
                                   [this] {
                                     return std::make_unique<PieMenuWindowController>(
                                         PieMenuWindowController::Ports{overlayPanels, screens, pointer, haptics,
                                                                        eventMonitors, mainQueue, clock},
                                         ringEnvironment());
                                   },
                                   {},
                                   [this](const std::optional<std::string>& problem) { statusItemProblem = problem; }}};
};

void CompositionLinux::runLegacyMigration(Log& log) {
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files(environment);
  desktop::FileUserDefaults defaults(files, log);
  LegacyPieMenuMigration({files, defaults, environment, log}).run();
}

CompositionLinux::CompositionLinux(QApplication& application, Log& log) {
  configureQt(application, desktop::PosixProcessEnvironment().bundleIdentifier().c_str());
  const auto access = qtX11Access();
  if (!access) return;
  presence_ = std::make_unique<Presence>(log);
  switch (presence_->instance.claim()) {
    case SingleInstance::Start::handedOver:
      state_ = State::handedOver;
      return;
    case SingleInstance::Start::unanswered:
      state_ = State::blocked;
      return;
    case SingleInstance::Start::first:
      break;
  }
  program_ = std::make_unique<Program>(*access, log);
  state_ = State::ready;
}

CompositionLinux::~CompositionLinux() = default;

void CompositionLinux::start() {
  program_->favicons.onPicture = [this] { program_->delegate.iconsChanged(); };
  program_->installed.onChanged = [this] { program_->delegate.iconsChanged(); };
  program_->delegate.applicationDidFinishLaunching();
  presence_->instance.serve(program_->sessionRequests());
  program_->mainQueue.async([this] {
    program_->installed.warm();
    program_->rasterizer.warmUp();
  });
}

void CompositionLinux::terminate() {
  program_->settingsEdits.flush();
  program_->delegate.applicationWillTerminate();
  program_->handOverClipboard();
  presence_->instance.release();
}

bool CompositionLinux::isRelaunchRequested() const { return program_->shell.isRelaunchRequested(); }

}  // namespace rondora
