#pragma once

#include <xcb/xcb.h>

#include <functional>
#include <optional>
#include <string_view>

#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/windows/window_frame.h"
#include "platform/linux/x11/windows/window_manager_sync.h"

namespace rondora::x11 {

/// Requests to the window manager to place one window. Each waits until the window manager has handled it, as long as
/// WindowManagerSync does, and fails when it has no effect. One worker thread.
class WindowPlacement {
 public:
  /// Arguments must outlive the object.
  WindowPlacement(const X11Connection& connection, const WindowManagerSync& windowManager, xcb_window_t window)
      : connection_(connection), windowManager_(windowManager), window_(window) {}

  /// False for a window that its window manager places itself.
  bool canMove() const { return isPlaceable("_NET_WM_ACTION_MOVE"); }
  bool canResize() const { return isPlaceable("_NET_WM_ACTION_RESIZE"); }
  bool canMinimize() const { return allows("_NET_WM_ACTION_MINIMIZE", "_NET_WM_ACTION_MINIMIZE"); }
  bool canFullScreen() const { return allows("_NET_WM_STATE_FULLSCREEN", "_NET_WM_ACTION_FULLSCREEN"); }
  bool isFullScreen() const { return hasAtom("_NET_WM_STATE", "_NET_WM_STATE_FULLSCREEN"); }

  /// Moves the visible frame, in pixels of the root window. A maximised, shaded or full-screen window becomes an
  /// ordinary one first. As near as window and window manager allow counts as success.
  bool moveTo(int x, int y) const;
  /// Resizes the visible frame and keeps its upper left corner; otherwise as `moveTo`.
  bool resizeTo(int width, int height) const;
  bool setFullScreen(bool isFullScreen) const;
  bool minimize() const;

 private:
  bool isPlaceable(std::string_view action) const;
  bool isAllowed(std::string_view action) const;
  bool allows(std::string_view supported, std::string_view action) const;
  bool isHeld() const;
  bool hasAtom(std::string_view property, std::string_view atom) const;
  void changeState(bool adds, std::string_view first, std::string_view second = {}) const;
  bool makeOrdinary() const;
  bool fillsScreen() const;
  bool drawsShadow() const;
  void awaitShadow(bool isThere) const;
  bool resizeFrom(const WindowFrame& before, int width, int height) const;
  void requestGeometry(std::uint32_t fields, const PixelRect& values) const;
  /// Until the frame differs, or a limit explains why it does not.
  bool awaitChange(const WindowFrame& before, const std::function<bool()>& isLimited) const;
  bool limitsSize(const PixelRect& client, const PixelRect& wanted) const;
  bool fitsOnRoot(const PixelRect& frame) const;

  const X11Connection& connection_;
  const WindowManagerSync& windowManager_;
  xcb_window_t window_;
};

}  // namespace rondora::x11
