#pragma once

#include <functional>
#include <optional>
#include <string>
#include <utility>

#include "app/hotkey_editing.h"
#include "settings/editing/edit_history.h"
#include "settings/general/general_settings.h"
#include "settings/menus/item_editor.h"
#include "settings/menus/menu_editor.h"
#include "settings/menus/menu_list.h"
#include "settings/menus/ring_preview.h"
#include "settings/settings_models.h"
#include "settings/settings_navigation.h"

namespace rondora {

/// What the settings show and edit. Made when a window first needs it. Main thread.
struct SettingsServices {
  /// The references must outlive the object. `history`, `navigation` and `edits` of the parts are filled in.
  struct Ports {
    EditSession& session;
    ConfigManager& config;
    const Clock& clock;
    Haptics& haptics;
    Pasteboard& pasteboard;
    RandomSource& random;
    const LocalizationStore& localization;
    NotificationCenter& notifications;
    HotkeyRecorder::Ports recorder;
    ModifierNames modifierNames;
    std::function<const HotkeyManager*()> hotkeys;
    std::function<std::string(const PieMenu&)> trigger;
    std::function<std::string(const PieMenuItem&)> itemTitle;
    std::function<std::string()> trackpadNote;
    std::function<std::optional<std::string>(std::string_view)> applicationName;
    std::function<bool(MacOSSystemActionKind)> canDo;
    std::function<std::string()> snippetHint;
    std::function<RingPreview::Ring(const PieMenu&)> ring;
    std::function<void(const PieMenuItem&, const Uuid& menu)> run;
    /// The user must be told of something before they edit menus.
    std::function<bool()> hasProblem;
    KeptDocuments& kept;
    FileSystem& files;
    Workspace& workspace;
    AppMenuCatalog& menus;
    std::function<std::string(const MenuShortcut&)> keyEquivalent;
    ApplicationList::Services applications;
    FileChooser& fileChooser;
    std::string ownBundleIdentifier;
    const Trackpads& trackpads;
    DesktopKind desktop;
    LaunchAtLoginService& login;
    const PermissionsMonitor& permissions;
    PermissionsSnapshot::Ports permissionRequests;
    std::function<std::optional<bool>()> showsStatusItem;
    std::function<SessionFindings()> failures;
    std::function<void(const FindingButton&)> pressFinding;
  };

  explicit SettingsServices(const Ports& ports);
  SettingsServices(const SettingsServices&) = delete;
  SettingsServices& operator=(const SettingsServices&) = delete;

  /// Begins with the page that tells what is wrong, if something is.
  SettingsModels models();
  /// An action ended; an attempt of the user's learns of it.
  void actionEnded(const PieMenuItem& item, const std::string& problem);

 private:
  RingPreview::Services previewServices();
  RingPreview::Ring ring(const std::vector<std::size_t>& order) const;
  bool showsCommands() const;
  std::optional<std::size_t> chosenSector() const;
  void chooseSector(std::optional<std::size_t> sector);
  void moveSector(std::size_t from, std::size_t to);

  Ports ports_;
  bool isOpened_ = false;
  std::optional<Uuid> attempted_;
  std::function<void(std::string)> attemptEnded_;

 public:
  EditHistory history;
  SettingsNavigation navigation;
  HotkeyEditing hotkeys;
  MenuList menus;
  MenuEditor menu;
  ItemEditor item;
  AppCommandSets commandSets;
  ExcludedApplications excluded;
  AppearanceEditor appearance;
  GeneralSettings general;
  SettingsBackup backup;
  RecentIcons recentIcons;
  /// Shows what the others hold.
  RingPreview preview;

 private:
  Subscription commandSetsChanged_;
  Subscription navigationChanged_;
};

}  // namespace rondora
