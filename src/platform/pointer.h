#pragma once

#include "base/geometry.h"

namespace rondora {

enum class CursorShape { arrow, pointingHand };

class Pointer {
 public:
  virtual ~Pointer() = default;

  /// Where the pointer is now, in the coordinate space of the screens (points).
  virtual Point location() const = 0;
  /// The pointer's look while it is over the program's own overlay.
  virtual void setCursor(CursorShape shape) = 0;
};

}  // namespace rondora
