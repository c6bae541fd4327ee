#pragma once

#include <AppKit/AppKit.h>

namespace rondora::appkit {

/// The application that was active before this program. Without a menu bar this program would otherwise stay active
/// when its last window closes, and take every key.
class PreviousApplication {
 public:
  /// Call it before the program becomes active.
  void remember();
  /// Makes that application active again, unless a window of the program stays besides `closing`.
  void returnFrom(NSWindow* closing) const;

 private:
  NSRunningApplication* application_ = nil;
};

}  // namespace rondora::appkit
