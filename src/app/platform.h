#pragma once

#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "app/single_instance.h"
#include "commands/sub_actions.h"
#include "input/hotkeys/hotkey_display.h"
#include "platform/accessibility.h"
#include "platform/announcer.h"
#include "platform/application_directory.h"
#include "platform/application_shell.h"
#include "platform/clock.h"
#include "platform/desktop_kind.h"
#include "platform/event_monitors.h"
#include "platform/event_taps.h"
#include "platform/file_chooser.h"
#include "platform/file_system.h"
#include "platform/front_process.h"
#include "platform/haptics.h"
#include "platform/hotkey_service.h"
#include "platform/key_event_poster.h"
#include "platform/log.h"
#include "platform/login_item.h"
#include "platform/main_queue.h"
#include "platform/multitouch.h"
#include "platform/network_fetch.h"
#include "platform/overlay_panel.h"
#include "platform/pasteboard.h"
#include "platform/permission_service.h"
#include "platform/picture_decoder.h"
#include "platform/pointer.h"
#include "platform/process_environment.h"
#include "platform/random_source.h"
#include "platform/recording_keyboard.h"
#include "platform/screens.h"
#include "platform/secure_input.h"
#include "platform/serial_queue.h"
#include "platform/session_events.h"
#include "platform/spaces.h"
#include "platform/status_item.h"
#include "platform/symbolic_hot_key_switch.h"
#include "platform/symbolic_hot_keys.h"
#include "platform/text_order.h"
#include "platform/trackpads.h"
#include "platform/user_defaults.h"
#include "platform/window_list.h"
#include "platform/windows.h"
#include "platform/workspace.h"

namespace rondora {

/// Everything that a Program needs of its system: an implementation of each port, and the other differences between
/// systems. All references must outlive the program. Functions may be empty unless stated otherwise.
struct Platform {
  Log& log;
  Clock& clock;
  RandomSource& random;
  MainQueue& mainQueue;
  FileSystem& files;
  UserDefaults& defaults;
  const ProcessEnvironment& environment;
  NetworkFetch& network;
  PictureDecoder& pictureDecoder;

  HotkeyService& hotkeyService;
  EventTaps& eventTaps;
  SecureInput& secureInput;
  SymbolicHotKeySwitch& symbolicHotKeySwitch;
  EventMonitors& eventMonitors;
  RecordingKeyboard& recordingKeyboard;
  KeyEventPoster& keyEvents;
  Pointer& pointer;
  Screens& screens;
  Haptics& haptics;
  const Trackpads& trackpads;
  MultitouchDevices& multitouch;
  OverlayPanels& overlayPanels;
  Announcer& announcer;
  StatusBar& statusBar;
  Windows& windows;
  FileChooser& fileChooser;
  const TextOrder& textOrder;
  ApplicationShell& shell;
  SessionEvents& sessionEvents;

  Workspace& workspace;
  const ApplicationDirectory& applications;
  Pasteboard& pasteboard;
  PermissionService& permissionService;
  LoginItem& loginItem;
  WindowList& windowList;
  FrontProcess& frontProcess;
  Accessibility& accessibility;
  Spaces& spaces;
  SymbolicHotKeys& symbolicHotKeys;
  /// For the commands of applications; used on one worker thread only.
  Accessibility& commandAccessibility;
  /// Already claimed.
  SingleInstance& instance;

  /// Never empty.
  std::function<std::unique_ptr<SerialQueue>(std::string_view label)> makeSerialQueue;
  /// Told whether a menu opens with a tap on the trackpad: before the permissions are first read, and after changes of
  /// the document.
  std::function<void(bool)> wantTrackpads;
  /// Told whether a menu shows the commands of applications, at the same times.
  std::function<void(bool)> wantApplicationMenus;
  /// Names of the running applications whose menus cannot be read until they are started again.
  std::function<std::vector<std::string>()> applicationsWithoutMenus;
  /// Sets the language of the toolkit's own texts.
  std::function<void(AppLanguage)> useInterfaceLanguage;
  /// The observer is called when applications were installed or removed.
  std::function<Subscription(std::function<void()>)> onInstalledApplicationsChanged;
  /// Loads what the first ring would otherwise wait for; called once, on a turn after the launch.
  std::function<void()> warmUp;
  /// Hands the clipboard's content to the system when the program ends.
  std::function<void()> handOverClipboard;
  /// Returns memory that nothing uses to the system. May be empty.
  std::function<void()> returnFreeMemory = {};

  DesktopKind desktop = DesktopKind::x11;
  ModifierNames modifierNames;
  /// Display text of the keys that paste.
  std::string_view pasteKeys;

  /// Finds and runs the commands of applications in place of the program's own; null: its own.
  SubActions* subActions = nullptr;
};

}  // namespace rondora
