#pragma once

#include <AppKit/AppKit.h>

#include <string>
#include <vector>

#include "platform/status_item.h"

namespace rondora::appkit {

/// A menu with these entries, which it owns.
NSMenu* makeMenu(const std::string& title, const std::vector<MenuEntry>& entries);

}  // namespace rondora::appkit
