#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "base/uuid.h"
#include "commands/sub_action_list.h"
#include "localization/localization_store.h"
#include "model/app_sub_menu.h"
#include "model/pie_menu.h"
#include "model/pie_menu_item.h"
#include "platform/random_source.h"
#include "platform/workspace.h"
#include "settings/commands/command_catalog.h"
#include "settings/editing/edit_history.h"

namespace rondora {

/// The page of the application-commands menu: one of its sets, which the user chooses and edits. Main thread.
class AppCommandSets {
 public:
  struct Set {
    /// "" is the default set.
    std::string application;
    std::string title;
    friend bool operator==(const Set&, const Set&) = default;
  };

  /// An entry of the chosen set, as the ring shows it.
  struct Entry {
    Uuid id;
    std::string title;
    /// The icon text.
    std::string icon;
    /// The menus that lead to the command, or what a command without menus is.
    std::string menus;
    /// The key equivalent that the command has now.
    std::string keyEquivalent;
    /// Why the ring dims the command; otherwise empty.
    std::string problem;
    friend bool operator==(const Entry&, const Entry&) = default;
  };

  /// A command that every application has.
  struct GeneralCommand {
    AppSubMenuEntry::Kind kind = AppSubMenuEntry::Kind::hideApp;
    std::string title;
    std::string icon;
    friend bool operator==(const GeneralCommand&, const GeneralCommand&) = default;
  };

  /// The references must outlive the object.
  struct Services {
    EditHistory& history;
    Workspace& workspace;
    AppMenuCatalog& menus;
    const LocalizationStore& localization;
    RandomSource& random;
    /// Display text of a key equivalent.
    std::function<std::string(const MenuShortcut&)> keyEquivalent;
    /// Tells the user what an edit did besides the visible.
    std::function<void(std::string)> tell = {};
  };

  explicit AppCommandSets(const Services& services);

  /// The default set, then those of applications in the order of the document.
  std::vector<Set> sets() const;
  const std::string& chosen() const { return chosen_; }
  bool isDefaultChosen() const { return chosen_.empty(); }
  /// The name of the application whose set is chosen, and of the default set.
  std::string chosenTitle() const { return titleOf(chosen_); }
  /// Without effect when there is no such set. Reads the menus of the application.
  void choose(const std::string& application);
  /// Chooses the application's set, which begins as a copy of the default one.
  void add(const std::string& application);
  /// The application of the chosen set uses the default one again.
  void remove();

  std::vector<Entry> entries() const;
  /// The entry that list and ring highlight.
  std::optional<Uuid> chosenEntry() const { return chosenEntry_; }
  std::optional<std::size_t> chosenPlace() const;
  void chooseEntry(const std::optional<Uuid>& entry);
  /// What the user should know about the chosen set.
  std::string note() const;
  /// Those that the chosen set lacks.
  std::vector<GeneralCommand> generalCommands() const;
  bool hasMenuCommand(const std::vector<std::string>& path) const;
  bool canRemoveEntry() const { return !isDefaultChosen() || stored().size() > 1; }
  /// The default set differs from the built-in one.
  bool canReset() const;
  bool canSuggest() const;

  /// At the end of the chosen set; nothing when it has the command. `menuCommand` is an index into the catalog.
  std::optional<Uuid> addGeneralCommand(AppSubMenuEntry::Kind kind);
  std::optional<Uuid> addMenuCommand(std::size_t menuCommand);
  /// Chooses the entry that follows.
  void removeEntry(const Uuid& entry);
  /// To that place, or to the end.
  void moveEntry(const Uuid& entry, std::size_t place);
  /// The icon that the user gave the entry; "" for none, with which it has its own.
  std::string iconOf(const Uuid& entry) const;
  void setIcon(const Uuid& entry, const std::string& icon);
  /// Replaces the commands of the application by those that `suggestedCommands` finds in its menus.
  void suggest();
  /// Gives the default set the built-in commands.
  void reset();

  double rotationDegrees() const;
  /// Snaps. Steps in quick succession are one.
  void setRotationDegrees(double degrees);
  /// The items of the ring, in the order of the entries and with their ids.
  std::vector<PieMenuItem> items() const;
  /// The menu that the ring shows for the chosen set, with these items and this rotation.
  PieMenu ringMenu() const;

  /// The menus of the application whose set is chosen.
  CommandCatalog& catalog() { return catalog_; }
  const CommandCatalog& catalog() const { return catalog_; }

  /// The observer is called after each change of what is above, except that of the language.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  std::vector<AppSubMenuEntry> stored() const;
  std::vector<PieSubAction> commands() const;
  std::string titleOf(const std::string& application) const;
  std::optional<Uuid> append(const AppSubMenuEntry& entry);
  std::optional<std::size_t> placeOf(const Uuid& entry) const;
  void documentChanged();

  Services services_;
  CommandCatalog catalog_;
  std::string chosen_;
  /// The set that was chosen when it was removed: chosen again when it comes back.
  std::string vanished_;
  std::optional<Uuid> chosenEntry_;
  Signal<> changed_;
  Subscription edits_;
  Subscription readings_;
};

}  // namespace rondora
