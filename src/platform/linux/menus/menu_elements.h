#pragma once

#include <memory>
#include <span>
#include <string_view>

#include "platform/accessibility.h"
#include "platform/linux/menus/menu_source.h"

namespace rondora::menus {

/// A menu bar with its menus and items as accessibility elements. They are read level by level when they are asked for,
/// and keep what was read; another bar is read anew.
AXElementRef makeMenuBarElement(std::shared_ptr<MenuSource> source, MenuNodeRef bar);

/// Reads the items of those elements that are menus or menu bars, if their children are about to be read.
void prepareMenus(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes, double seconds);

}  // namespace rondora::menus
