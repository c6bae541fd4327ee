#pragma once

#include <memory>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/keyboard/raw_key_releases.h"
#include "platform/linux/x11/keyboard/x11_key_stream.h"
#include "platform/linux/x11/keyboard/x11_keymap.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/linux/x11/overlay/x11_overlay_panel.h"
#include "platform/linux/x11/overlay/x11_pointer.h"
#include "platform/qt/qt_main_queue.h"
#include "platform/qt/qt_native_events.h"
#include "platform/qt/qt_x11_access.h"
#include "sample_ring.h"
#include "ui/qt/painting/picture_decoding.h"
#include "ui/qt/painting/qt_picture_rasterizer.h"

namespace rondora {

/// The program's objects for showing a ring, and no others. Needs the application object, on X.
struct OverlayStage {
  OverlayStage(const QtX11Access& access, double pixelsPerPoint)
      : connection(access.connection, access.screenNumber, pixelsPerPoint),
        events([this](const xcb_generic_event_t& event) { return connection.dispatch(event); }) {
    rasterizer.warmUp();
  }

  /// Returns once the server has handled all requests.
  void sync() const {
    const x11::Reply<xcb_get_input_focus_reply_t> reply(
        xcb_get_input_focus_reply(connection.get(), xcb_get_input_focus(connection.get()), nullptr));
  }

  QtMainQueue mainQueue;
  x11::X11Connection connection;
  QtNativeEvents events;
  x11::X11Keymap keymap{connection, mainQueue};
  x11::RawKeyReleases rawKeyReleases{connection};
  x11::X11KeyStream keys{connection, keymap, rawKeyReleases, mainQueue};
  x11::X11InputGrab inputGrab{connection, keys, mainQueue};
  x11::X11Pointer pointer{connection, keys, inputGrab};
  ThemeIcons icons;
  QtPictureRasterizer rasterizer{icons, {.sitePicture = {}, .decode = decodeAtOnce}};
  x11::X11OverlayPanels panels{connection, inputGrab, rasterizer};
};

}  // namespace rondora
