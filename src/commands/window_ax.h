#pragma once

#include <cstdint>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "platform/accessibility.h"

namespace rondora {

/// Where a window goes in the work area of its screen.
enum class WindowTile { left, right, top, bottom, fill, center };

enum class FullScreenState { off = 0, on = 1, unsupported = 2 };

/// Finds, moves and resizes a window of another application. Rectangles are in points, the origin at the top left of
/// the primary screen. Failures show in the result only. Calls wait for the application, each element at most
/// kMessagingTimeout: use it off the main thread, on the thread of the given Accessibility.
class WindowAX {
 public:
  static constexpr double kMessagingTimeout = 0.2;  // seconds

  explicit WindowAX(Accessibility& accessibility) : accessibility_(accessibility) {}

  /// The focused window, otherwise the main one, otherwise the first listed, of those that are standard windows; null
  /// when there is none.
  AXElementRef targetWindow(std::int32_t processIdentifier);

  /// An ordinary window that is not minimised. Sets the element's messaging timeout for the calls below, too.
  static bool isStandardWindow(AXElement& window);
  static bool canMoveAndResize(const AXElement& window);
  static FullScreenState fullScreenState(const AXElement& window);
  static bool toggleFullScreen(AXElement& window);

  /// The first work area that contains the point, otherwise the nearest one; nothing when there is none.
  static std::optional<Rect> screenFrame(Point point, const std::vector<Rect>& workAreas);
  /// The part of the work area for a tile: two halves cover it without gap or overlap. The whole area for `center`.
  static Rect tileFrame(WindowTile tile, const Rect& workArea);
  /// Places the window in the work area that holds its centre. True when the application accepted every change.
  static bool tile(AXElement& window, WindowTile tile, const std::vector<Rect>& workAreas);

 private:
  Accessibility& accessibility_;
};

}  // namespace rondora
