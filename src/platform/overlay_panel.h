#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "base/display_list.h"
#include "base/geometry.h"

namespace rondora {

/// How the overlay behaves on the desktop, in terms and numbers of AppKit. A backend applies each field that its
/// windowing system has a means for, and its header states the others.
struct OverlayPanelStyle {
  // Window levels.
  static constexpr int kNormalLevel = 0;
  static constexpr int kScreenSaverLevel = 1000;

  // Bits of `collectionBehavior`.
  static constexpr std::uint32_t kMoveToActiveSpace = 1U << 1;
  static constexpr std::uint32_t kTransient = 1U << 3;
  static constexpr std::uint32_t kIgnoresCycle = 1U << 6;
  static constexpr std::uint32_t kFullScreenAuxiliary = 1U << 8;

  int windowLevel = kNormalLevel;
  std::uint32_t collectionBehavior = 0;
  bool isBorderless = false;
  /// Above the windows of normal level.
  bool isFloating = false;
  /// Showing it leaves the active application active.
  bool nonactivating = false;
  /// Without it `makeKey` does nothing.
  bool canBecomeKey = false;
  bool canBecomeMain = false;
  bool hasShadow = true;
  bool isOpaque = true;
  /// The windowing system animates showing and hiding.
  bool isAnimated = true;
  bool hidesOnDeactivate = true;
  /// Looks the same in every appearance of the desktop.
  bool hasFixedAppearance = false;
  friend bool operator==(const OverlayPanelStyle&, const OverlayPanelStyle&) = default;
};

/// Receives the events of the overlay. Positions are in the panel's own coordinates (points, y down, origin at its top
/// left) and may lie far outside the panel. A panel that grabs the pointer never reports entering and leaving;
/// otherwise leaving is reported before the move that left. Any call may destroy the panel, which then accesses none of
/// its members. Main thread.
class OverlayPanelSink {
 public:
  virtual ~OverlayPanelSink() = default;

  virtual void pointerMoved(Point location) = 0;
  virtual void pointerEntered() = 0;
  virtual void pointerExited() = 0;
  virtual void mouseDown(Point location) = 0;
  /// The platform could not give the panel the keyboard, or took it away for good.
  virtual void panelLost() = 0;
};

/// One showing of the overlay: created hidden; the destructor hides it and releases keyboard and pointer. Never changes
/// which application is active. Main thread.
class OverlayPanel {
 public:
  virtual ~OverlayPanel() = default;

  /// Sets the picture, with all layers in state 0. The picture has the panel's size.
  virtual void setPicture(Picture picture) = 0;
  /// `layer` and `state` are valid indices into the picture; a fractional state blends the two states next to it. Takes
  /// effect with the next `display`.
  virtual void setLayerState(std::size_t layer, double state) = 0;
  /// Scales the picture about its anchor (1 is its own size) and fades it (1 is opaque). Takes effect with the next
  /// `display`.
  virtual void setAppearancePhase(double scale, double opacity) = 0;
  /// Brings the changes to the screen.
  virtual void display() = 0;
  /// Shows icons that were decoded since, at once.
  virtual void refreshIcons() = 0;

  /// Shows the panel above everything else, whichever application is active. A panel that can become key may stay
  /// invisible until it has the keyboard.
  virtual void orderFrontRegardless() = 0;
  /// Directs keyboard and pointer to the panel. Once it has the pointer, it reports the position as a move, at once or
  /// later: earlier motion went elsewhere.
  virtual void makeKey() = 0;
  /// It was ordered front.
  virtual bool isVisible() const = 0;
  /// The current position of the pointer, outside the event stream.
  virtual Point mouseLocationOutsideOfEventStream() const = 0;
};

class OverlayPanels {
 public:
  virtual ~OverlayPanels() = default;

  /// `frame` is in the coordinate space of the screens. `sink` must outlive the panel.
  virtual std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                                  OverlayPanelSink& sink) = 0;
  /// Pre-renders the picture, so that its first showing does not wait. Shows nothing.
  virtual void prerender(Picture picture) = 0;
};

}  // namespace rondora
