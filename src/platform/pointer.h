#pragma once

#include "base/geometry.h"

namespace rondora {

enum class CursorShape { arrow, pointingHand };

class Pointer {
 public:
  virtual ~Pointer() = default;

  /// Current position in screen coordinates (points).
  virtual Point location() const = 0;
  /// Sets the cursor shown over the program's own overlay.
  virtual void setCursor(CursorShape shape) = 0;
};

}  // namespace rondora
