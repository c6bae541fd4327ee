#pragma once

#include <Foundation/Foundation.h>

namespace rondora::macos {

/// While it lives, the system neither slows the program's timers down because it has no window (App Nap) nor ends it
/// without asking; the machine may sleep.
class Activity {
 public:
  Activity();
  ~Activity();
  Activity(const Activity&) = delete;
  Activity& operator=(const Activity&) = delete;

 private:
  id token_;
};

}  // namespace rondora::macos
