#pragma once

#include <AppKit/AppKit.h>

#include "base/observable.h"

namespace rondora::appkit {

/// The program's menu that is open, if any: of the menu bar, the status item or a control.
class MenuTracking {
 public:
  MenuTracking();

  void cancel();

 private:
  NSMenu* __weak open_ = nil;
  Subscription begun_;
  Subscription ended_;
};

}  // namespace rondora::appkit
