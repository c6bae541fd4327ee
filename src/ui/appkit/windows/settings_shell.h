#pragma once

#include <memory>

#include "platform/windows.h"
#include "settings/window_contents.h"

namespace rondora::appkit {

/// What the settings open.
class SettingsShell {
 public:
  virtual ~SettingsShell() = default;
  virtual std::unique_ptr<SettingsWindow> makeWindow(WindowContents contents) = 0;
  /// Closes the open lists of the settings, which hold keyboard and pointer.
  virtual void closePopups() = 0;
  /// Call it when applications were installed, updated or removed.
  virtual void forgetApplications() = 0;
};

}  // namespace rondora::appkit
