#include "settings/editing/command_set_edits.h"

#include <algorithm>
#include <utility>

#include "pie/geometry/sector_geometry.h"
#include "settings/editing/elements_by_id.h"

namespace rondora {
namespace {

using Entries = std::vector<AppSubMenuEntry>;

/// The menu of application commands; the document has exactly one. Null in a document that is not repaired.
template <class Document>
auto* menuOf(Document& document) {
  const auto found = std::find_if(document.menus.begin(), document.menus.end(),
                                  [](const PieMenu& each) { return each.kind == PieMenuKind::appCommands; });
  return found == document.menus.end() ? nullptr : &*found;
}

/// The set of that application, not the default one.
template <class Document>
auto* ownSet(Document& document, std::string_view application) {
  auto& sets = document.appSubMenus;
  const auto found = std::find_if(sets.begin(), sets.end(),
                                  [application](const AppSubMenu& set) { return set.bundleIdentifier == application; });
  return application.empty() || found == sets.end() ? nullptr : &*found;
}

/// Null when there is no such set.
template <class Document>
auto* entriesOf(Document& document, std::string_view application) {
  auto* menu = menuOf(document);
  auto* set = ownSet(document, application);
  if (application.empty()) return menu ? &menu->appCommandsDefaultEntries : nullptr;
  return set ? &set->entries : nullptr;
}

auto findCommand(Entries& entries, const AppSubMenuEntry& entry) {
  return std::find_if(entries.begin(), entries.end(), [&entry](const AppSubMenuEntry& each) {
    return each.kind == entry.kind && each.menuPath == entry.menuPath;
  });
}

/// Turns the ring by at most a quarter of a sector. A ring without sectors keeps its rotation for the next ones.
void snap(PieConfiguration& document, std::string_view application) {
  if (entriesOf(document, application)->empty()) return;
  const double degrees = CommandSetEdits::rotationDegrees(document, application);
  CommandSetEdits::setRotationDegrees(document, application, degrees);
}

}  // namespace

bool CommandSetEdits::has(const PieConfiguration& document, std::string_view application) {
  return entriesOf(document, application) != nullptr;
}

Entries CommandSetEdits::entries(const PieConfiguration& document, std::string_view application) {
  const Entries* entries = entriesOf(document, application);
  return entries ? *entries : Entries();
}

double CommandSetEdits::rotationDegrees(const PieConfiguration& document, std::string_view application) {
  const AppSubMenu* set = ownSet(document, application);
  const PieMenu* menu = menuOf(document);
  if (set && set->rotationDegrees) return *set->rotationDegrees;
  return menu ? menu->rotationDegrees : 0;
}

bool CommandSetEdits::add(PieConfiguration& document, std::string_view application, RandomSource& random) {
  if (application.empty() || has(document, application)) return false;
  AppSubMenu set{std::string(application), document.defaultAppCommands(random), rotationDegrees(document, "")};
  for (AppSubMenuEntry& entry : set.entries) entry.id = random.uuid();
  document.appSubMenus.push_back(std::move(set));
  return true;
}

bool CommandSetEdits::remove(PieConfiguration& document, std::string_view application) {
  const auto isOfApplication = [application](const AppSubMenu& set) { return set.bundleIdentifier == application; };
  return !application.empty() && std::erase_if(document.appSubMenus, isOfApplication) > 0;
}

std::optional<Uuid> CommandSetEdits::insert(PieConfiguration& document, std::string_view application, std::size_t place,
                                            AppSubMenuEntry entry, RandomSource& random) {
  Entries* entries = entriesOf(document, application);
  if (!entries || findCommand(*entries, entry) != entries->end()) return std::nullopt;
  entry.id = random.uuid();
  const auto at = entries->begin() + static_cast<std::ptrdiff_t>(std::min(place, entries->size()));
  const Uuid id = entries->insert(at, std::move(entry))->id;
  snap(document, application);
  return id;
}

bool CommandSetEdits::replace(PieConfiguration& document, std::string_view application, const AppSubMenuEntry& entry) {
  Entries* entries = entriesOf(document, application);
  if (!entries) return false;
  const auto found = editing::find(*entries, entry.id);
  if (found == entries->end()) return false;
  *found = entry;
  return true;
}

bool CommandSetEdits::replaceAll(PieConfiguration& document, std::string_view application, Entries entries,
                                 RandomSource& random) {
  Entries* present = entriesOf(document, application);
  if (!present || (entries.empty() && application.empty())) return false;
  for (AppSubMenuEntry& entry : entries) {
    const auto same = findCommand(*present, entry);
    if (same == present->end()) {
      entry.id = random.uuid();
    } else {
      entry = *same;
    }
  }
  *present = std::move(entries);
  snap(document, application);
  return true;
}

bool CommandSetEdits::move(PieConfiguration& document, std::string_view application, const Uuid& entry,
                           std::size_t place) {
  Entries* entries = entriesOf(document, application);
  return entries && editing::moveTo(*entries, entry, place);
}

bool CommandSetEdits::removeEntry(PieConfiguration& document, std::string_view application, const Uuid& entry) {
  Entries* entries = entriesOf(document, application);
  if (!entries || (application.empty() && entries->size() == 1)) return false;
  const auto found = editing::find(*entries, entry);
  if (found == entries->end()) return false;
  entries->erase(found);
  snap(document, application);
  return true;
}

bool CommandSetEdits::setIcon(PieConfiguration& document, std::string_view application, const Uuid& entry,
                              std::string icon) {
  Entries* entries = entriesOf(document, application);
  if (!entries) return false;
  const auto found = editing::find(*entries, entry);
  if (found == entries->end()) return false;
  found->icon = icon.empty() ? std::nullopt : std::optional(std::move(icon));
  return true;
}

void CommandSetEdits::resetDefaults(PieConfiguration& document, RandomSource& random) {
  PieMenu* menu = menuOf(document);
  if (!menu) return;
  PieMenu builtIn = PieConfiguration::templateAppCommandsMenu(random);
  menu->appCommandsDefaultEntries = std::move(builtIn.appCommandsDefaultEntries);
  menu->rotationDegrees = builtIn.rotationDegrees;
}

bool CommandSetEdits::setRotationDegrees(PieConfiguration& document, std::string_view application, double degrees) {
  const Entries* entries = entriesOf(document, application);
  if (!entries) return false;
  const auto count = static_cast<std::int64_t>(std::max<std::size_t>(entries->size(), 1));
  const double snapped = snappedAestheticRotationDegrees(degrees, count);
  if (snapped == rotationDegrees(document, application)) return true;
  if (AppSubMenu* set = ownSet(document, application)) {
    set->rotationDegrees = snapped;
  } else {
    menuOf(document)->rotationDegrees = snapped;
  }
  return true;
}

}  // namespace rondora
