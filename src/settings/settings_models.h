#pragma once

#include "localization/localization_store.h"
#include "settings/editing/edit_history.h"
#include "settings/menus/item_editor.h"
#include "settings/menus/menu_editor.h"
#include "settings/menus/menu_list.h"
#include "settings/menus/ring_preview.h"
#include "settings/settings_navigation.h"

namespace rondora {

/// What the settings window shows and edits; valid as long as the program.
struct SettingsModels {
  const LocalizationStore& localization;
  EditHistory& history;
  SettingsNavigation& navigation;
  MenuList& menus;
  MenuEditor& menu;
  ItemEditor& item;
  RingPreview& preview;
};

}  // namespace rondora
