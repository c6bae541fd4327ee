#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "base/weak_self.h"
#include "commands/app_menu_catalog.h"
#include "commands/application_snapshot.h"
#include "localization/localization_store.h"
#include "model/app_sub_menu.h"
#include "platform/workspace.h"

namespace rondora {

/// The menu commands of one application, read from its menus while it runs, for the user to choose from. Main thread.
class CommandCatalog {
 public:
  enum class State {
    notRunning,
    reading,
    unreadable,  // it publishes no menus, or does not respond
    incomplete,
    complete,
  };

  /// A command as the list shows it.
  struct Row {
    /// Index in `commands`.
    std::size_t command = 0;
    std::string title;
    /// The icon text that its entry would have.
    std::string icon;
    /// The menus that lead to it: "File › Export".
    std::string menus;
    std::string keyEquivalent;
    /// Why it could not be run now, for which it can still be chosen; otherwise empty.
    std::string note;
    friend bool operator==(const Row&, const Row&) = default;
  };

  /// The references must outlive the object.
  struct Services {
    Workspace& workspace;
    AppMenuCatalog& menus;
    const LocalizationStore& localization;
    std::function<std::string(const MenuShortcut&)> keyEquivalent;
  };

  explicit CommandCatalog(const Services& services);

  /// Reads the menus of that application; "" is none.
  void show(const std::string& application);
  /// What is known stays until the answer.
  void readAgain();

  const std::string& application() const { return application_; }
  State state() const { return state_; }
  /// With a key equivalent first, each group in the order of the menus.
  const std::vector<AppMenuCatalog::Command>& commands() const { return commands_; }
  /// Those whose path or key equivalent contains every word of the query, in any case.
  std::vector<Row> rows(std::string_view query) const;
  /// What the user should know about the list, and can do: that it is being read, or what is missing. May be empty.
  std::string note() const;

  /// What the menus tell of these entries, for the list of commands that a ring would offer. Whether a command can be
  /// run at the moment is left out: it changes as soon as the user works in the application.
  ApplicationSnapshot snapshot(const std::vector<AppSubMenuEntry>& entries) const;

  /// The observer is called after each change of what is above.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  const AppMenuCatalog::Command* find(const AppSubMenuEntry& entry) const;
  void read();
  void arrived(std::uint64_t reading, AppMenuCatalog::Listing listing);
  void activated(const RunningApplication& application);

  Services services_;
  std::string application_;
  State state_ = State::notRunning;
  std::vector<AppMenuCatalog::Command> commands_;
  /// For the search, by command: path and key equivalent in lower case.
  std::vector<std::string> searched_;
  /// The latest request; earlier ones are out of date.
  std::uint64_t reading_ = 0;
  Signal<> changed_;
  Subscription activations_;
  WeakSelf<CommandCatalog> weakSelf_{this};
};

/// The entry of a set for this command, without an id.
AppSubMenuEntry entryOf(const AppMenuCatalog::Command& command);
/// The same for a command that every application has.
AppSubMenuEntry entryOf(AppSubMenuEntry::Kind kind);

/// The menus that lead to a command: "File › Export".
std::string menusOfPath(const std::vector<std::string>& path);

}  // namespace rondora
