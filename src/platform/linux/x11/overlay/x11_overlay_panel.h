#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <memory>
#include <optional>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "platform/linux/x11/connection/selection_owner_watch.h"
#include "platform/linux/x11/connection/x11_connection.h"
#include "platform/linux/x11/overlay/dirty_rects.h"
#include "platform/linux/x11/overlay/pixel_surface.h"
#include "platform/linux/x11/overlay/screen_reader.h"
#include "platform/linux/x11/overlay/shaped_composition.h"
#include "platform/linux/x11/overlay/x11_input_grab.h"
#include "platform/overlay_panel.h"
#include "platform/picture_rasterizer.h"

namespace rondora::x11 {

/// What the panels of one program share.
struct OverlayResources {
  X11Connection& connection;
  X11InputGrab& inputGrab;
  PictureRasterizer& rasterizer;
  SelectionOwnerWatch& compositor;
  ScreenReader& screenReader;
  PixelTransport transport = PixelTransport::requests;
  xcb_visualid_t visual = 0;
  std::uint8_t depth = 0;
  xcb_colormap_t colormap = 0;
  bool hasAlpha = false;
};

/// A window that bypasses the window manager, painted from an image; keyboard and pointer come by grab, which is
/// requested when the panel is made. Nothing is visible before the keyboard is held, so that no ring appears over a
/// screen lock. Without a compositor the window has the shape of the ring, blended with a snapshot of the screen taken
/// when the panel was made; where the screen cannot be read, the ring has a hard, dark edge.
class X11OverlayPanel : public OverlayPanel, private InputGrabSink {
 public:
  X11OverlayPanel(const OverlayResources& resources, const OverlayPanelStyle& style, const Rect& frame,
                  OverlayPanelSink& sink);
  ~X11OverlayPanel() override;
  X11OverlayPanel(const X11OverlayPanel&) = delete;
  X11OverlayPanel& operator=(const X11OverlayPanel&) = delete;

  void setPicture(Picture picture) override;
  void setLayerState(std::size_t layer, double state) override;
  void setAppearancePhase(double scale, double opacity) override;
  void display() override;
  void refreshIcons() override;
  void orderFrontRegardless() override;
  void makeKey() override;
  bool isVisible() const override { return isOrderedFront_; }
  Point mouseLocationOutsideOfEventStream() const override;

  xcb_window_t windowId() const { return window_; }

 private:
  void createWindow();
  void setProperties() const;
  void disclaimShadow() const;
  void dirtyWhole();
  void setSnapshot();
  void paintDirty();
  void putDirty();
  void map();
  void show();
  void putWhole();
  void put(const PixelRect& rect);
  void updateShape();
  void compositorChanged();
  void raise() const;
  void raiseAgain();
  bool mayBeCoveredBy(xcb_window_t window) const;
  PixelRect pixelsOf(const Rect& rect) const;
  Point inPanel(int rootX, int rootY) const;
  bool isTransparent() const { return !style_.isOpaque && resources_.hasAlpha && resources_.compositor.hasOwner(); }
  bool handleEvent(const xcb_generic_event_t& event);

  void keyboardGrabbed() override;
  void grabbedPointerMoved(int x, int y) override { sink_.pointerMoved(inPanel(x, y)); }
  void grabbedButtonPressed(int x, int y, xcb_button_t button) override;
  void grabFailed() override { sink_.panelLost(); }

  const OverlayResources& resources_;
  OverlayPanelStyle style_;
  OverlayPanelSink& sink_;
  PixelRect frame_;
  xcb_window_t window_ = XCB_WINDOW_NONE;
  xcb_gcontext_t context_ = 0;
  /// Requested before the window is made, which must not be in it; kept only without a compositor.
  std::unique_ptr<ScreenSnapshot> snapshot_;
  bool hasSnapshot_ = false;
  std::unique_ptr<PixelSurface> surface_;
  ShapedComposition composition_;
  std::unique_ptr<PreparedPicture> picture_;
  std::vector<Rect> layerBounds_;
  std::vector<double> layerStates_;
  PictureView view_;
  DirtyRects dirty_;
  bool isMapped_ = false;
  bool isOrderedFront_ = false;
  /// The picture is on the screen.
  bool isShown_ = false;
  /// The sequence number of the latest put of the whole window.
  std::uint32_t wholePut_ = 0;
  int raisesLeft_;
  Subscription compositorObserver_;
  /// Reports windows that come to lie above the panel.
  Subscription rootSelection_;
  Subscription eventHandler_;
  WeakSelf<X11OverlayPanel> weakSelf_{this};
};

/// How the fields of OverlayPanelStyle apply:
/// - `isBorderless` with `nonactivating`: an override-redirect window. No window manager decorates, activates or lists
///   it, and it belongs to no workspace; so it is never the main window and is out of window cycling, on whichever
///   workspace is current, and above full-screen windows (`canBecomeMain`, `collectionBehavior`).
/// - `windowLevel` above normal, or `isFloating`: it is raised again when another window comes to lie above it.
/// - `canBecomeKey`: the grab. `isOpaque`: no alpha channel. `hasShadow`: the properties by which compositors leave the
///   shadow out.
///
/// X11 has no means for `isAnimated` (each compositor decides), `hidesOnDeactivate` (the panel ends with the ring) and
/// `hasFixedAppearance` (nothing of the desktop's theme reaches the panel).
class X11OverlayPanels : public OverlayPanels {
 public:
  X11OverlayPanels(X11Connection& connection, X11InputGrab& inputGrab, PictureRasterizer& rasterizer);
  ~X11OverlayPanels() override;

  std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                          OverlayPanelSink& sink) override;
  void prerender(Picture picture) override;

 private:
  SelectionOwnerWatch compositor_;
  ScreenReader screenReader_;
  OverlayResources resources_;
};

}  // namespace rondora::x11
