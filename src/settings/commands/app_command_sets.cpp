#include "settings/commands/app_command_sets.h"

#include <algorithm>
#include <array>
#include <utility>

#include "commands/app_commands_menu_items.h"
#include "settings/commands/suggested_commands.h"
#include "settings/editing/command_set_edits.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

/// As the list of commands to add shows them: places of the window, its state, the application.
constexpr std::array kGeneralKinds = {Kind::tileLeft,         Kind::tileRight,      Kind::tileTop,
                                      Kind::tileBottom,       Kind::fillScreen,     Kind::centerWindow,
                                      Kind::toggleFullScreen, Kind::minimizeWindow, Kind::closeWindow,
                                      Kind::hideApp,          Kind::quitApp};

}  // namespace

AppCommandSets::AppCommandSets(const Services& services)
    : services_(services),
      catalog_({services.workspace, services.menus, services.localization, services.keyEquivalent}),
      edits_(services.history.onChanged([this] { documentChanged(); })),
      readings_(catalog_.onChanged([this] { changed_.send(); })) {}

void AppCommandSets::documentChanged() {
  const PieConfiguration& document = services_.history.document();
  if (!CommandSetEdits::has(document, chosen_)) {
    vanished_ = std::exchange(chosen_, {});
    catalog_.show("");
  } else if (!vanished_.empty() && CommandSetEdits::has(document, vanished_)) {
    choose(std::exchange(vanished_, {}));
  }
  if (chosenEntry_ && !placeOf(*chosenEntry_)) chosenEntry_.reset();
  changed_.send();
}

std::string AppCommandSets::titleOf(const std::string& application) const {
  if (application.empty()) return std::string(services_.localization.text(StringKey::commandsDefaultSet));
  if (auto name = services_.workspace.applicationName(application)) return *std::move(name);
  const auto running = services_.workspace.runningApplications(application);
  return running.empty() ? application : running.front().localizedName;
}

std::vector<AppCommandSets::Set> AppCommandSets::sets() const {
  std::vector<Set> sets = {{"", titleOf("")}};
  for (const AppSubMenu& set : services_.history.document().appSubMenus) {
    const auto isListed = [&set](const Set& each) { return each.application == set.bundleIdentifier; };
    if (std::none_of(sets.begin(), sets.end(), isListed)) {
      sets.push_back({set.bundleIdentifier, titleOf(set.bundleIdentifier)});
    }
  }
  return sets;
}

void AppCommandSets::choose(const std::string& application) {
  if (application == chosen_ || !CommandSetEdits::has(services_.history.document(), application)) return;
  chosen_ = application;
  chosenEntry_.reset();
  catalog_.show(application);
}

void AppCommandSets::add(const std::string& application) {
  services_.history.edit(
      [&](PieConfiguration& document) { CommandSetEdits::add(document, application, services_.random); });
  choose(application);
}

void AppCommandSets::remove() {
  if (isDefaultChosen()) return;
  const std::string title = services_.localization.text(StringKey::settingsDeleted, chosenTitle());
  services_.history.edit([this](PieConfiguration& document) { CommandSetEdits::remove(document, chosen_); });
  if (services_.tell) services_.tell(title);
}

std::vector<AppSubMenuEntry> AppCommandSets::stored() const {
  return CommandSetEdits::entries(services_.history.document(), chosen_);
}

/// One for each entry, also for one that a ring would leave out.
std::vector<PieSubAction> AppCommandSets::commands() const {
  const std::vector<AppSubMenuEntry> entries = stored();
  const ApplicationSnapshot snapshot = catalog_.snapshot(entries);
  const SubActionTexts texts{services_.localization, services_.keyEquivalent};
  std::vector<PieSubAction> commands;
  commands.reserve(entries.size());
  for (const AppSubMenuEntry& entry : entries) commands.push_back(makeSubActions({entry}, snapshot, texts).front());
  return commands;
}

std::vector<AppCommandSets::Entry> AppCommandSets::entries() const {
  const std::vector<AppSubMenuEntry> stored = this->stored();
  const std::vector<PieSubAction> commands = this->commands();
  std::vector<Entry> entries;
  for (std::size_t i = 0; i < stored.size(); ++i) {
    const PieSubAction& command = commands[i];
    const bool isGeneral = command.kind != Kind::menuItem;
    entries.push_back({.id = stored[i].id,
                       .title = command.title,
                       .icon = command.icon,
                       .menus = isGeneral ? std::string(services_.localization.text(StringKey::commandsEveryApp))
                                          : menusOfPath(command.menuPath),
                       .keyEquivalent = command.isAvailable ? command.note : "",
                       .problem = command.isAvailable ? "" : command.note});
  }
  return entries;
}

std::optional<std::size_t> AppCommandSets::placeOf(const Uuid& entry) const {
  const std::vector<AppSubMenuEntry> entries = stored();
  const auto found = std::ranges::find(entries, entry, &AppSubMenuEntry::id);
  if (found == entries.end()) return std::nullopt;
  return static_cast<std::size_t>(found - entries.begin());
}

std::optional<std::size_t> AppCommandSets::chosenPlace() const {
  return chosenEntry_ ? placeOf(*chosenEntry_) : std::nullopt;
}

void AppCommandSets::chooseEntry(const std::optional<Uuid>& entry) {
  const std::optional<Uuid> chosen = entry && placeOf(*entry) ? entry : std::nullopt;
  if (chosen == chosenEntry_) return;
  chosenEntry_ = chosen;
  changed_.send();
}

std::string AppCommandSets::note() const {
  if (isDefaultChosen()) return std::string(services_.localization.text(StringKey::commandsDefaultNote));
  if (stored().empty()) return std::string(services_.localization.text(StringKey::commandsEmptyNote));
  return {};
}

std::vector<AppCommandSets::GeneralCommand> AppCommandSets::generalCommands() const {
  const std::vector<AppSubMenuEntry> entries = stored();
  std::vector<AppSubMenuEntry> lacking;
  for (const Kind kind : kGeneralKinds) {
    const auto isOfKind = [kind](const AppSubMenuEntry& entry) { return entry.kind == kind; };
    if (std::none_of(entries.begin(), entries.end(), isOfKind)) lacking.push_back(entryOf(kind));
  }
  std::vector<GeneralCommand> commands;
  for (PieSubAction& each : makeSubActions(lacking, {}, {services_.localization, services_.keyEquivalent})) {
    commands.push_back({each.kind, std::move(each.title), std::move(each.icon)});
  }
  return commands;
}

bool AppCommandSets::hasMenuCommand(const std::vector<std::string>& path) const {
  const std::vector<AppSubMenuEntry> entries = stored();
  return std::any_of(entries.begin(), entries.end(), [&path](const AppSubMenuEntry& entry) {
    return entry.kind == Kind::menuItem && entry.menuPath == path;
  });
}

bool AppCommandSets::canReset() const {
  if (!isDefaultChosen()) return false;
  const PieMenu builtIn = PieConfiguration::templateAppCommandsMenu(services_.random);
  const auto isSame = [](const AppSubMenuEntry& one, const AppSubMenuEntry& other) {
    return one.kind == other.kind && !one.icon;
  };
  return builtIn.rotationDegrees != rotationDegrees() ||
         !std::ranges::equal(stored(), builtIn.appCommandsDefaultEntries, isSame);
}

bool AppCommandSets::canSuggest() const {
  return !isDefaultChosen() && !suggestedCommands(catalog_.commands()).empty();
}

std::optional<Uuid> AppCommandSets::append(const AppSubMenuEntry& entry) {
  std::optional<Uuid> added;
  services_.history.edit([&](PieConfiguration& document) {
    added = CommandSetEdits::insert(document, chosen_, stored().size(), entry, services_.random);
  });
  return added;
}

std::optional<Uuid> AppCommandSets::addGeneralCommand(Kind kind) { return append(entryOf(kind)); }

std::optional<Uuid> AppCommandSets::addMenuCommand(std::size_t menuCommand) {
  if (menuCommand >= catalog_.commands().size()) return std::nullopt;
  return append(entryOf(catalog_.commands()[menuCommand]));
}

void AppCommandSets::removeEntry(const Uuid& entry) {
  const auto place = placeOf(entry);
  services_.history.edit([&](PieConfiguration& document) { CommandSetEdits::removeEntry(document, chosen_, entry); });
  const std::vector<AppSubMenuEntry> entries = stored();
  if (place && !entries.empty()) chooseEntry(entries[std::min(*place, entries.size() - 1)].id);
}

void AppCommandSets::moveEntry(const Uuid& entry, std::size_t place) {
  services_.history.edit([&](PieConfiguration& document) { CommandSetEdits::move(document, chosen_, entry, place); });
}

std::string AppCommandSets::iconOf(const Uuid& entry) const {
  const auto place = placeOf(entry);
  return place ? stored()[*place].icon.value_or("") : "";
}

void AppCommandSets::setIcon(const Uuid& entry, const std::string& icon) {
  services_.history.edit([&](PieConfiguration& document) { CommandSetEdits::setIcon(document, chosen_, entry, icon); });
}

void AppCommandSets::suggest() {
  if (!canSuggest()) return;
  services_.history.edit([this](PieConfiguration& document) {
    CommandSetEdits::replaceAll(document, chosen_, suggestedCommands(catalog_.commands()), services_.random);
  });
}

void AppCommandSets::reset() {
  if (!canReset()) return;
  services_.history.edit(
      [this](PieConfiguration& document) { CommandSetEdits::resetDefaults(document, services_.random); });
}

double AppCommandSets::rotationDegrees() const {
  return CommandSetEdits::rotationDegrees(services_.history.document(), chosen_);
}

void AppCommandSets::setRotationDegrees(double degrees) {
  services_.history.edit(
      [&](PieConfiguration& document) { CommandSetEdits::setRotationDegrees(document, chosen_, degrees); },
      "commands.rotation." + chosen_);
}

std::vector<PieMenuItem> AppCommandSets::items() const {
  const std::vector<AppSubMenuEntry> entries = stored();
  std::vector<PieMenuItem> items = AppCommandsMenuItems::build(commands());
  for (std::size_t i = 0; i < items.size(); ++i) items[i].id = entries[i].id;
  return items;
}

PieMenu AppCommandSets::ringMenu() const {
  const auto& menus = services_.history.document().menus;
  const auto found =
      std::find_if(menus.begin(), menus.end(), [](const auto& each) { return each.kind == PieMenuKind::appCommands; });
  PieMenu menu = found == menus.end() ? PieMenu() : *found;
  menu.items = items();
  menu.rotationDegrees = rotationDegrees();
  return menu;
}

}  // namespace rondora
