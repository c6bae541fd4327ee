#include "commands/queue_readings.h"
#include "doubles/fake_menus.h"
#include "doubles/fake_platform.h"
#include "doubles/stories.h"
#include "input/hotkeys/hotkey_display.h"
#include "settings/commands/app_command_sets.h"
#include "settings/editing/command_set_edits.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

/// The applications editor and viewer are installed. Entries are named by their place in the chosen set.
struct CommandSetsStory : Story {
  using W = const Words&;

  CommandSetsStory() {
    for (const std::string id : {"editor", "viewer"}) desktop.workspace.install(id, "The-" + id);
    desktop.accessibility.calls.clock = &desktop.time;
    const auto entry = [this](W w) { return sets.entries().at(std::stoul(w[0])).id; };
    actions = {{"start", [this](W w) { process = desktop.workspace.start(w[0]).processIdentifier; }},
               {"menus", [this](W w) { publish(w); }},
               {"slow", [this](W w) { desktop.accessibility.calls.seconds = std::stod(w[0]); }},
               {"activate",
                [this](W) {
                  desktop.workspace.leaveAll();
                  desktop.workspace.bringForward(process);
                }},
               {"wait", [this](W) { desktop.time.advance(3); }},
               {"choose", [this](W w) { sets.choose(w.empty() ? "" : w[0]); }},
               {"add", [this](W w) { sets.add(w[0]); }},
               {"remove", [this](W) { sets.remove(); }},
               {"add-general", [this](W w) { sets.addGeneralCommand(*appSubMenuEntryKindFromRawValue(w[0])); }},
               {"add-command", [this](W w) { sets.addMenuCommand(sets.catalog().rows(w[0]).at(0).command); }},
               {"choose-entry", [=, this](W w) { sets.chooseEntry(entry(w)); }},
               {"remove-entry", [=, this](W w) { sets.removeEntry(entry(w)); }},
               {"move", [=, this](W w) { sets.moveEntry(entry(w), std::stoul(w[1])); }},
               {"icon", [=, this](W w) { sets.setIcon(entry(w), w.size() > 1 ? w[1] : ""); }},
               {"suggest", [this](W) { sets.suggest(); }},
               {"reset", [this](W) { sets.reset(); }},
               {"turn", [this](W w) { sets.setRotationDegrees(std::stod(w[0])); }},
               {"search", [this](W w) { query = joined(w); }},
               {"again", [this](W) { sets.catalog().readAgain(); }},
               {"undo", [this](W) { history.undo(); }},
               {"redo", [this](W) { history.redo(); }}};
    observations = {{"sets", [this] { return titles(); }},
                    {"entries", [this] { return entries(); }},
                    {"icons", [this] { return icons(); }},
                    {"ring", [this] { return ring(); }},
                    {"lacking",
                     [this] {
                       Words words;
                       for (const auto& each : sets.generalCommands()) words.emplace_back(rawValue(each.kind));
                       return joined(words);
                     }},
                    {"found", [this] { return found(); }},
                    {"catalog", [this] { return sets.catalog().note().empty() ? "none" : sets.catalog().note(); }},
                    {"chosen",
                     [this] {
                       const auto place = sets.chosenPlace();
                       return place ? std::to_string(*place) : "none";
                     }},
                    {"note", [this] { return sets.note(); }},
                    {"told", [this] { return std::exchange(told, "none"); }},
                    {"can", [this] {
                       return joined({sets.canSuggest() ? "suggest" : "-", sets.canReset() ? "reset" : "-",
                                      sets.canRemoveEntry() ? "remove" : "-"});
                     }}};
  }

  /// "File/More/New=n": a command below two menus with the key equivalent Ctrl+N; "!" behind it: it cannot be run now.
  void publish(const Words& commands) {
    FakeMenuItem bar{"", "", 0, {{"System"}}};
    for (std::string command : commands) {
      FakeMenuItem* item = &bar;
      const bool isEnabled = !command.ends_with("!");
      if (!isEnabled) command.pop_back();
      const auto key = command.find('=');
      std::istringstream path(command.substr(0, key));
      for (std::string title; std::getline(path, title, '/');) {
        auto& items = item->items;
        const auto same = std::ranges::find(items, title, &FakeMenuItem::title);
        item = same != items.end() ? &*same : &*items.insert(items.end(), FakeMenuItem{title});
      }
      if (key != std::string::npos) item->shortcut = command.substr(key + 1);
      item->modifiers = 4 + 8;
      item->isEnabled = isEnabled;
    }
    menus.publish(process, bar.items);
  }
  std::string titles() const {
    Words words;
    for (const auto& each : sets.sets())
      words.push_back((each.application.empty() ? "default" : each.title) +
                      (each.application == sets.chosen() ? "*" : ""));
    return joined(words);
  }
  /// "Menu›Title[key equivalent]", "!" before one that the application lacks; by kind for those of every application.
  std::string entries() const {
    Words words;
    const auto stored = CommandSetEdits::entries(history.document(), sets.chosen());
    for (const auto& each : sets.entries()) {
      const auto& entry = stored.at(words.size());
      const std::string key = each.keyEquivalent.empty() ? "" : "[" + each.keyEquivalent + "]";
      words.push_back(entry.kind != Kind::menuItem
                          ? std::string(rawValue(entry.kind))
                          : (each.problem.empty() ? "" : "!") + each.menus + "›" + each.title + key);
    }
    return joined(words);
  }
  std::string icons() const {
    Words words;
    for (const auto& each : sets.entries()) words.push_back(each.icon);
    return joined(words);
  }
  /// The number of sectors and the rotation, "?" when a sector is not that of its entry.
  std::string ring() const {
    const PieMenu menu = sets.ringMenu();
    const bool fits = std::ranges::equal(menu.items, sets.entries(), {}, &PieMenuItem::id, &AppCommandSets::Entry::id);
    std::ostringstream text;
    text << menu.items.size() << " " << menu.rotationDegrees << (fits ? "" : "?");
    return text.str();
  }
  std::string found() const {
    Words words;
    for (const auto& row : sets.catalog().rows(query))
      words.push_back(row.menus + "›" + row.title + (row.note.empty() ? "" : "(" + row.note + ")"));
    return joined(words);
  }

  FakePlatform desktop;
  FakeMenus menus{desktop.accessibility};
  NotificationCenter notifications;
  ConfigManager config{{desktop.files, desktop.time, desktop.log, desktop.random, notifications}};
  EditSession session{config, desktop.time};
  EditHistory history{session, config, desktop.time};
  LocalizationStore localization;
  QueueReadings readings;
  std::unique_ptr<SerialQueue> queue = desktop.serialQueue();
  AppMenuCatalog catalog{{desktop.time, desktop.time, *queue, readings, desktop.accessibility}};
  AppCommandSets sets{{history, desktop.workspace, catalog, localization, desktop.random,
                       [](const MenuShortcut& shortcut) { return menuShortcutText(shortcut); },
                       [this](std::string notice) { told = std::move(notice); }}};
  std::string told = "none";
  std::int32_t process = 0;
  std::string query;
};

TEST(CommandSets, Stories) { playStories<CommandSetsStory>("command_sets"); }

}  // namespace
}  // namespace rondora
