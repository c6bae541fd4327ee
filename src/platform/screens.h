#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "base/geometry.h"
#include "base/observable.h"

namespace rondora {

struct Screen {
  Rect frame;
  /// `frame` without panels and docks.
  Rect visibleFrame;
  friend bool operator==(const Screen&, const Screen&) = default;
};

/// The monitors, in one common coordinate space (points, y down). Main thread.
class Screens {
 public:
  virtual ~Screens() = default;

  /// All screens; the one at the coordinate origin comes first, if there is one.
  virtual std::vector<Screen> all() const = 0;
  virtual std::optional<Screen> main() const = 0;
  /// True when each screen shows its part of a window that lies on several; else only one of them shows the window.
  virtual bool shareWindows() const { return true; }
  /// Called after monitors were added, removed, moved or resized.
  [[nodiscard]] virtual Subscription onParametersChanged(std::function<void()> observer) = 0;
};

}  // namespace rondora
