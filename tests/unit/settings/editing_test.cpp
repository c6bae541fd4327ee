#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "settings/editing/edit_history.h"
#include "settings/editing/menu_edits.h"

namespace rondora {
namespace {

/// Menus are named by their name, items by their place in the ring of the first menu.
struct EditingStory : Story {
  using W = const Words&;
  using Document = PieConfiguration;

  EditingStory() {
    const auto menu = [this](const std::string& name) {
      for (const PieMenu& each : history.document().menus) {
        if (each.name == name) return each.id;
      }
      return Uuid();
    };
    const auto change = [this](auto edit, const std::string& field = "") { changed = history.edit(edit, field); };
    const auto changeItem = [change](W w, auto edit) {
      change([&](Document& d) { edit(d.menus[0], d.menus[0].items.at(std::stoul(w[0])).id); });
    };
    actions = {
        {"add", [=, this](W w) { change([&](Document& d) { MenuEdits::add(d, w[0], random); }); }},
        {"copy", [=, this](W w) { change([&](Document& d) { MenuEdits::duplicate(d, menu(w[0]), w[1], random); }); }},
        {"rename", [=](W w) { change([&](Document& d) { MenuEdits::rename(d, menu(w[0]), w[1]); }); }},
        {"move", [=](W w) { change([&](Document& d) { MenuEdits::move(d, menu(w[0]), std::stoul(w[1])); }); }},
        {"remove", [=](W w) { change([&](Document& d) { MenuEdits::remove(d, menu(w[0])); }); }},
        {"radius", [=](W w) { change([&](Document& d) { d.menus[0].menuRadius = std::stod(w[0]); }, "radius"); }},
        {"unify", [=](W w) { change([&](Document& d) { MenuEdits::copyAppearanceToAll(d, menu(w[0])); }); }},
        {"insert",
         [=, this](W w) {
           change([&](Document& d) {
             PieMenuItem item = ItemEdits::make(d.menus[0], random);
             item.title = w[1];
             ItemEdits::insert(d.menus[0], std::stoul(w[0]), item, random);
           });
         }},
        {"move-item",
         [=](W w) { changeItem(w, [&](auto& m, const Uuid& id) { ItemEdits::move(m, id, std::stoul(w[1])); }); }},
        {"remove-item", [=](W w) { changeItem(w, [](auto& m, const Uuid& id) { ItemEdits::remove(m, id); }); }},
        {"import",
         [this](W w) {
           PieConfiguration other = PieConfiguration::defaultConfig(random);
           other.menus[0].name = w[0];
           config.save(other);
         }},
        {"wait", [this](W w) { time.advance(std::stod(w[0])); }},
        {"undo", [this](W) { history.undo(); }},
        {"redo", [this](W) { history.redo(); }}};
    observations = {
        {"menus", [this] { return names(); }},
        {"items", [this] { return titles(); }},
        {"saved", [this] { return config.current().menus[0].name; }},
        {"radii",
         [this] {
           Words radii;
           for (const PieMenu& each : history.document().menus) radii.push_back(std::to_string(int(each.menuRadius)));
           return joined(radii);
         }},
        {"changed", [this] { return yesOrNo(changed); }},
        {"can", [this] { return std::string(history.canUndo() ? "undo" : "") + (history.canRedo() ? "redo" : ""); }}};
    history.edit([](Document& d) {
      d.menus[0].name = "Main";
      d.menus[0].items.resize(2);
      d.menus[0].items[0].title = "B";
      d.menus[0].items[0].sectorIndex = 7;
      d.menus[0].items[1].title = "A";
    });
  }
  std::string names() const {
    Words words;
    for (const PieMenu& each : history.document().menus)
      words.push_back(each.kind == PieMenuKind::standard ? each.name + (each.hotkey.isAssigned() ? "!" : "") : "*");
    return joined(words);
  }
  std::string titles() const {
    Words words;
    for (const PieMenuItem& each : history.document().menus[0].items)
      words.push_back(each.title + std::to_string(each.sectorIndex));
    return joined(words);
  }

  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  ConfigManager config{{files, time, log, random, notifications}};
  EditSession session{config, time};
  EditHistory history{session, config, time};
  bool changed = false;
};

TEST(SettingsEditing, Stories) { playStories<EditingStory>("settings_editing"); }

}  // namespace
}  // namespace rondora
