#include "app/composition_linux.h"

#include <QApplication>
#include <QDBusConnection>
#include <QSocketNotifier>
#include <chrono>
#include <utility>
#include <vector>

#include "app/platform.h"
#include "app/program.h"
#include "app/single_instance.h"
#include "base/program_identity.h"
#include "input/hotkeys/hotkey_display.h"
#include "platform/linux/desktop/absent_ports.h"
#include "platform/linux/desktop/file_user_defaults.h"
#include "platform/linux/desktop/installed_applications.h"
#include "platform/linux/desktop/lock_file_channel.h"
#include "platform/linux/desktop/system_clock.h"
#include "platform/linux/desktop/system_random.h"
#include "platform/linux/desktop/thread_name.h"
#include "platform/linux/desktop/xdg_folders.h"
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
#include "platform/linux/x11/typing/xtest_permissions.h"
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
#include "storage/legacy_pie_menu_migration.h"
#include "ui/qt/painting/qt_picture_codec.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"
#include "ui/qt/tray/qt_status_bar.h"
#include "ui/qt/windows/interface_language.h"
#include "ui/qt/windows/qt_windows.h"

namespace rondora {
namespace {

/// Limits the wait for a clipboard manager that hangs.
constexpr std::chrono::seconds kMaxHandover{1};

Subscription watchReadable(int descriptor, std::function<void()> readable) {
  const auto notifier = std::make_shared<QSocketNotifier>(descriptor, QSocketNotifier::Read);
  QObject::connect(notifier.get(), &QSocketNotifier::activated, notifier.get(), std::move(readable));
  return Subscription([notifier] { notifier->setEnabled(false); });
}

}  // namespace

/// The program's claim on the session, made before any of the user's files is read or written.
struct CompositionLinux::Presence {
  explicit Presence(Log& log) : instance({&bus, &lockFile}, log) {}

  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{desktop::xdgFolders(environment)};
  SessionBusChannel bus{QDBusConnection::sessionBus(), environment.bundleIdentifier()};
  desktop::LockFileChannel lockFile{environment, files.cachesFolder(), watchReadable};
  SingleInstance instance;
};

/// One backend for each port, in order of dependency, and the program on top of them.
struct CompositionLinux::Running {
  Running(const QtX11Access& access, Log& programLog, SingleInstance& ownInstance)
      : log(programLog),
        instance(ownInstance),
        connection(access.connection, access.screenNumber, qtPixelsPerPoint()),
        events([this](const xcb_generic_event_t& event) {
          mainQueue.runWaiting();
          return connection.dispatch(event);
        }) {}

  Platform platform();
  void handOverClipboard();

  Log& log;
  SingleInstance& instance;
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files{desktop::xdgFolders(environment)};
  desktop::FileUserDefaults defaults{files, log};
  desktop::SystemClock clock;
  desktop::SystemRandom random;
  QtMainQueue mainQueue;

  x11::X11Connection connection;
  QtNativeEvents events;
  x11::X11Keymap keymap{connection, mainQueue};
  x11::RawKeyReleases rawKeyReleases{connection};
  x11::X11KeyStream keys{connection, keymap, rawKeyReleases, mainQueue};
  x11::X11HotkeyService hotkeys{connection, keymap, keys};
  x11::X11EventMonitors eventMonitors{keymap, keys};
  x11::X11InputGrab inputGrab{connection, keys, mainQueue};
  x11::X11Pointer pointer{connection, keys, inputGrab};
  x11::X11Screens screens{connection, mainQueue};
  desktop::InstalledApplications installed{environment};
  x11::X11ClientWindows clientWindows{connection};
  x11::X11Workspace workspace{connection, clientWindows, installed, environment.bundleIdentifier()};
  x11::X11ApplicationIcons applicationIcons{installed, clientWindows, workspace};
  QtNetworkFetch network;
  QtPictureCodec pictureCodec;
  QtPictureRasterizer rasterizer{applicationIcons, [this](std::string_view site) { return program.sitePicture(site); }};
  x11::X11OverlayPanels overlayPanels{connection, inputGrab, rasterizer};
  desktop::NoHaptics haptics;
  x11::XTestKeyPoster keyPoster{connection, keymap, keys, rawKeyReleases};
  x11::WindowOwners windowOwners;
  x11::X11WindowList windowList{connection, clientWindows, workspace, windowOwners};
  x11::X11FrontProcess frontProcess{connection, clientWindows, workspace, windowOwners};
  x11::WorkerConnection workerConnection{connection.pixelsPerPoint()};
  x11::X11Accessibility accessibility{workerConnection, windowOwners};
  x11::X11Spaces spaces{workerConnection};
  desktop::NoSpaceShortcuts spaceShortcuts;
  x11::XTestPermissions permissions{keyPoster.available()};
  QtApplicationShell shell;
  x11::SelectionOwnerWatch embeddingTray{connection, "_NET_SYSTEM_TRAY"};
  QtStatusBar statusBar{
      {[this] { return embeddingTray.hasOwner(); },
       [this](std::function<void()> observer) { return embeddingTray.onChanged(std::move(observer)); }}};
  QtPasteboard pasteboard;
  desktop::InputTrackpads trackpads;
  NoSubActions subActions{workspace, mainQueue};
  QtWindows windows{[this] { return program.windowContents(); }};
  Program program{platform()};
};

Platform CompositionLinux::Running::platform() {
  return {
      .log = log,
      .clock = clock,
      .random = random,
      .mainQueue = mainQueue,
      .files = files,
      .defaults = defaults,
      .environment = environment,
      .network = network,
      .pictureCodec = pictureCodec,
      .hotkeyService = hotkeys,
      .eventMonitors = eventMonitors,
      .keyEvents = keyPoster,
      .pointer = pointer,
      .screens = screens,
      .haptics = haptics,
      .trackpads = trackpads,
      .overlayPanels = overlayPanels,
      .statusBar = statusBar,
      .windows = windows,
      .shell = shell,
      .workspace = workspace,
      .pasteboard = pasteboard,
      .permissionService = permissions,
      .windowList = windowList,
      .frontProcess = frontProcess,
      .accessibility = accessibility,
      .spaces = spaces,
      .symbolicHotKeys = spaceShortcuts,
      .subActions = subActions,
      .instance = instance,
      .makeSerialQueue =
          [](auto label) { return std::make_unique<desktop::SerialThread>(std::string(label), desktop::nameThread); },
      .useInterfaceLanguage = useInterfaceLanguage,
      .onInstalledApplicationsChanged =
          [this](std::function<void()> observer) {
            installed.onChanged = std::move(observer);
            return Subscription([this] { installed.onChanged = nullptr; });
          },
      .warmUp =
          [this] {
            installed.warmUp();
            rasterizer.warmUp();
          },
      .restoreNativeAppSwitcher = {},
      .handOverClipboard = [this] { handOverClipboard(); },
      .modifierNames = kPcModifierNames,
      .pasteKeys = "Ctrl+V"};
}

/// Hands the content to a clipboard manager, if there is one, which keeps it after the program's end.
void CompositionLinux::Running::handOverClipboard() {
  x11::ClipboardHandover handover(connection);
  if (handover.begin()) handleEventsUntil([&handover] { return handover.hasEnded(); }, kMaxHandover);
}

void CompositionLinux::runLegacyMigration(Log& log) {
  desktop::PosixProcessEnvironment environment;
  desktop::PosixFileSystem files(desktop::xdgFolders(environment));
  desktop::FileUserDefaults defaults(files, log);
  LegacyPieMenuMigration({files, defaults, environment, log}).run();
}

CompositionLinux::CompositionLinux(QApplication& application, Log& log) {
  configureQt(application, program_identity::kBundleIdentifier);
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
  running_ = std::make_unique<Running>(*access, log, presence_->instance);
  state_ = State::ready;
}

CompositionLinux::~CompositionLinux() = default;

void CompositionLinux::start() { running_->program.start(); }

void CompositionLinux::terminate() { running_->program.end(); }

bool CompositionLinux::isRelaunchRequested() const { return running_->shell.isNewInstanceRequested(); }

}  // namespace rondora
