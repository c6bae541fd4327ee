#pragma once

#include <string>

#include "model/pie_menu_item.h"
#include "platform/workspace.h"

namespace rondora {

/// What a sector is called on screen. The first-run document names applications of one system; where another answers
/// for them, an item that still has its original title shows the name of the application that will really open.
class ItemTitles {
 public:
  explicit ItemTitles(const Workspace& workspace) : workspace_(workspace) {}

  std::string title(const PieMenuItem& item) const;

 private:
  const Workspace& workspace_;
};

}  // namespace rondora
