#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>

#include "base/display_list.h"
#include "base/geometry.h"

namespace rondora {

/// How the overlay behaves on the desktop. The numbers are the ones of the windowing system that the program was
/// conceived for; a platform maps them to what it has.
struct OverlayPanelStyle {
  // Bits of `collectionBehavior`.
  static constexpr std::uint32_t kMoveToActiveSpace = 1U << 1;
  static constexpr std::uint32_t kTransient = 1U << 3;
  static constexpr std::uint32_t kIgnoresCycle = 1U << 6;
  static constexpr std::uint32_t kFullScreenAuxiliary = 1U << 8;

  int windowLevel = 0;
  std::uint32_t collectionBehavior = 0;
  bool isBorderless = false;
  bool isFloating = false;
  /// Showing it leaves the active application as it is.
  bool nonactivating = false;
  bool canBecomeKey = false;
  bool canBecomeMain = false;
  bool hasShadow = true;
  bool isOpaque = true;
  /// The windowing system animates showing and hiding.
  bool isAnimated = true;
  bool hidesOnDeactivate = true;
  /// Looks the same whatever appearance the desktop has.
  bool hasFixedAppearance = false;
  friend bool operator==(const OverlayPanelStyle&, const OverlayPanelStyle&) = default;
};

/// What the overlay reports. Positions are in the panel's own coordinates (points, y down, origin at its top left) and
/// may lie far outside the panel: where the panel keeps the pointer wherever it goes, entering and leaving are never
/// reported, else leaving is before the move that left. Any call may destroy the panel, which then touches nothing of
/// itself any more. Main thread.
class OverlayPanelSink {
 public:
  virtual ~OverlayPanelSink() = default;

  virtual void pointerMoved(Point location) = 0;
  virtual void pointerEntered() = 0;
  virtual void pointerExited() = 0;
  virtual void mouseDown(Point location) = 0;
  /// The platform could not give the panel the keyboard and the pointer, or took them away for good.
  virtual void panelLost() = 0;
};

/// One showing of the overlay: made hidden, ordered out when destroyed, at which moment keyboard and pointer are given
/// back. Never changes which application is active. Main thread.
class OverlayPanel {
 public:
  virtual ~OverlayPanel() = default;

  /// Sets what the panel shows; all layers are in state 0. The picture's size is the panel's.
  virtual void setPicture(Picture picture) = 0;
  /// `layer` and `state` are valid indices into the picture; a state between two whole numbers is a mixture of both.
  /// Seen after the next `display`.
  virtual void setLayerState(std::size_t layer, double state) = 0;
  /// Scales the picture around its anchor (1 is its own size) and fades it (1 is opaque). Seen after the next
  /// `display`.
  virtual void setAppearancePhase(double scale, double opacity) = 0;
  /// Brings what changed to the screen.
  virtual void display() = 0;

  /// Shows the panel above everything else, whatever application is active.
  virtual void orderFrontRegardless() = 0;
  /// From here on keyboard and pointer belong to the panel. Where the pointer is once it does so is reported as a move,
  /// at once or later: before that nobody told the panel where it went.
  virtual void makeKey() = 0;
  virtual bool isVisible() const = 0;
  /// Where the pointer is now, outside the event stream.
  virtual Point mouseLocationOutsideOfEventStream() const = 0;
};

class OverlayPanels {
 public:
  virtual ~OverlayPanels() = default;

  /// `frame` is in the coordinate space of the screens. `sink` outlives the panel.
  virtual std::unique_ptr<OverlayPanel> makePanel(const OverlayPanelStyle& style, const Rect& frame,
                                                  OverlayPanelSink& sink) = 0;
  /// Does now what a panel's first showing of this picture would otherwise wait for. Shows nothing.
  virtual void warmUp(Picture picture) = 0;
};

}  // namespace rondora
