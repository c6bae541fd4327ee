#include "platform/macos/events/appkit_pointer.h"

#include <AppKit/AppKit.h>

#include "platform/macos/events/screen_points.h"

namespace rondora::macos {

Point AppKitPointer::location() const { return portPoint(NSEvent.mouseLocation); }

void AppKitPointer::setCursor(CursorShape shape) {
  [(shape == CursorShape::pointingHand ? NSCursor.pointingHandCursor : NSCursor.arrowCursor) set];
}

}  // namespace rondora::macos
