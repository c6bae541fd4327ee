#pragma once

#include "localization/localization_store.h"
#include "platform/file_chooser.h"
#include "settings/appearance/appearance_editor.h"
#include "settings/applications/application_list.h"
#include "settings/backup/settings_backup.h"
#include "settings/commands/app_command_sets.h"
#include "settings/editing/edit_history.h"
#include "settings/general/general_settings.h"
#include "settings/icons/recent_icons.h"
#include "settings/menus/item_editor.h"
#include "settings/menus/menu_editor.h"
#include "settings/menus/menu_list.h"
#include "settings/menus/ring_preview.h"
#include "settings/running_apps/excluded_applications.h"
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
  AppCommandSets& commandSets;
  ExcludedApplications& excluded;
  AppearanceEditor& appearance;
  GeneralSettings& general;
  SettingsBackup& backup;
  /// What a list of applications to choose from is made of.
  ApplicationList::Services applications;
  RecentIcons& recentIcons;
  FileChooser& fileChooser;
};

}  // namespace rondora
