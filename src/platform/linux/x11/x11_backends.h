#pragma once

#include <string>
#include <utility>

#include "platform/linux/application_catalogue.h"
#include "platform/linux/x11/connection/selection_owner_watch.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/x11_event_monitors.h"
#include "platform/linux/x11/keyboard/x11_event_taps.h"
#include "platform/linux/x11/keyboard/x11_hotkey_service.h"
#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/linux/x11/overlay/x11_pointer.h"
#include "platform/linux/x11/overlay/x11_screens.h"
#include "platform/linux/x11/typing/xtest_key_poster.h"
#include "platform/linux/x11/windows/x11_accessibility.h"
#include "platform/linux/x11/windows/x11_application_icons.h"
#include "platform/linux/x11/windows/x11_front_process.h"
#include "platform/linux/x11/windows/x11_spaces.h"
#include "platform/linux/x11/windows/x11_window_list.h"
#include "platform/linux/x11/windows/x11_workspace.h"
#include "platform/main_queue.h"

namespace rondora::x11 {

/// The backends of one X connection, in order of dependency. The overlay panels are not among them:
/// they need a rasterizer, which in turn uses `applicationIcons`. Main thread.
struct X11Backends {
  /// Handle, queue and applications must outlive this object; the owner of the handle passes every event to
  /// `connection`.
  X11Backends(xcb_connection_t* handle, int screenNumber, double pixelsPerPoint, MainQueue& mainQueue,
              ApplicationCatalogue& applications, std::string ownBundleIdentifier)
      : connection(handle, screenNumber, pixelsPerPoint),
        keymap(connection, mainQueue),
        keys(connection, keymap, rawKeyReleases, mainQueue),
        eventTaps(connection, keymap, keys, rawKeyReleases, mainQueue),
        inputGrab(connection, keys, mainQueue),
        screens(connection, mainQueue),
        workspace(connection, clientWindows, applications, windowOwners, std::move(ownBundleIdentifier)),
        applicationIcons(applications, clientWindows, workspace) {}

  X11Connection connection;
  X11Keymap keymap;
  RawKeyReleases rawKeyReleases{connection};
  X11KeyStream keys;
  X11EventTaps eventTaps;
  X11HotkeyService hotkeys{connection, keymap, keys};
  X11EventMonitors eventMonitors{keymap, keys};
  X11RecordingKeyboard recordingKeyboard{connection, keys, rawKeyReleases};
  XTestKeyPoster keyPoster{connection, keymap, keys, rawKeyReleases};
  X11InputGrab inputGrab;
  X11Pointer pointer{connection, keys, inputGrab};
  X11Screens screens;
  X11ClientWindows clientWindows{connection};
  WindowOwners windowOwners;
  X11Workspace workspace;
  X11ApplicationIcons applicationIcons;
  X11WindowList windowList{connection, clientWindows, workspace, windowOwners};
  X11FrontProcess frontProcess{connection, clientWindows, workspace, windowOwners};
  WorkerConnection workerConnection{connection.pixelsPerPoint()};
  X11Accessibility accessibility{workerConnection, windowOwners};
  X11Spaces spaces{workerConnection};
  /// Of the queue for the commands of applications.
  WorkerConnection commandConnection{connection.pixelsPerPoint()};
  X11Accessibility commandAccessibility{commandConnection, windowOwners};
  SelectionOwnerWatch embeddingTray{connection, "_NET_SYSTEM_TRAY"};
};

}  // namespace rondora::x11
