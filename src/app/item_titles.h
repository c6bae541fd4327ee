#pragma once

#include <string>

#include "model/pie_menu_item.h"
#include "platform/workspace.h"

namespace rondora {

/// The titles of sectors on screen. The first-run document names applications of one system; where the workspace maps
/// such an identifier to another application, an item that still has its original title shows that application's name.
class ItemTitles {
 public:
  explicit ItemTitles(const Workspace& workspace) : workspace_(workspace) {}

  std::string title(const PieMenuItem& item) const;

 private:
  const Workspace& workspace_;
};

}  // namespace rondora
