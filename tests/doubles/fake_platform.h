#pragma once

#include "doubles/fake_accessibility.h"
#include "doubles/fake_devices.h"
#include "doubles/fake_dialogs.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_key_events.h"
#include "doubles/fake_keyboard.h"
#include "doubles/fake_log.h"
#include "doubles/fake_multitouch.h"
#include "doubles/fake_overlay_panels.h"
#include "doubles/fake_pasteboard.h"
#include "doubles/fake_screens.h"
#include "doubles/fake_session.h"
#include "doubles/fake_status_bar.h"
#include "doubles/fake_user_defaults.h"
#include "doubles/fake_web.h"
#include "doubles/fake_window_server.h"
#include "doubles/fake_windows.h"
#include "doubles/fake_workspace.h"
#include "doubles/virtual_time.h"

namespace rondora {

/// A deterministic desktop in virtual time that implements every port and records the calls. Tests act as the user
/// (press keys, move the pointer, switch to a window) and check what the user would see.
struct FakePlatform {
  /// Declared before the queue, whose work may own a window.
  FakeWindows windows;
  FakeFileChooser fileChooser;
  FakeTextOrder textOrder;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  FakeProcessEnvironment environment;
  FakeUserDefaults defaults;
  FakeFileSystem files;
  FakeWeb web{time};
  FakePictureDecoder pictureDecoder{time};
  FakePasteboard pasteboard;
  FakeWorkspace workspace;
  FakeWindowServer windowServer{workspace};
  FakeAccessibility accessibility;
  FakeKeyEvents keyEvents{time};
  FakeScreens screens;
  /// Also the pointer.
  FakeOverlayPanels overlay{time};
  /// Hot keys and event monitors.
  FakeKeyboard keyboard{[this] { return overlay.holdsKeyboard(); }};
  FakeHaptics haptics;
  FakeAnnouncer announcer;
  FakeTrackpads trackpads;
  FakeMultitouch multitouch;
  FakeStatusBar statusBar;
  FakeApplicationShell shell;
  FakeSessionEvents session;
  FakePermissionService permissions;
  FakeLoginItem loginItem;

  /// A queue whose work runs in virtual time, too.
  std::unique_ptr<SerialQueue> serialQueue() { return std::make_unique<SerialQueueInVirtualTime>(time); }
  /// The ports of ActionServices.
  template <class Ports>
  Ports actionPorts() {
    return {workspace,    pasteboard,   permissions, keyEvents, windowServer, windowServer, accessibility,
            windowServer, windowServer, time,        time,      log,          environment};
  }

  FakePlatform() = default;
  FakePlatform(const FakePlatform&) = delete;
  FakePlatform& operator=(const FakePlatform&) = delete;
};

}  // namespace rondora
