#pragma once

#include "platform/pointer.h"

namespace rondora::macos {

class AppKitPointer final : public Pointer {
 public:
  Point location() const override;
  void setCursor(CursorShape shape) override;
};

}  // namespace rondora::macos
