#include <algorithm>
#include <iomanip>
#include <sstream>

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "settings/appearance/appearance_editor.h"

namespace rondora {
namespace {

/// Menus are named by their place in the document.
struct AppearanceStory : Story {
  using W = const Words&;

  AppearanceStory() {
    actions = {{"show", [this](W w) { editor.showMenu(document().menus.at(std::stoul(w[0])).id); }},
               {"set", [this](W w) { editor.setNumber(w[0], std::stod(w[1])); }},
               {"switch", [this](W w) { editor.setOn(w[0], w[1] == "on"); }},
               {"choose", [this](W w) { editor.choose(w[0], std::stoul(w[1])); }},
               {"color", [this](W w) { editor.setColor(w[0], w[1]); }},
               {"reset", [this](W w) { w.empty() ? editor.resetAll() : editor.reset(w[0]); }},
               {"document", [this](W w) { history.edit([&](auto& d) { d.menus[0].menuRadius = std::stod(w[0]); }); }},
               {"copy", [this](W) { editor.copyToAll(); }},
               {"undo", [this](W) { history.undo(); }}};
    for (const AppearanceControl& control : kAppearanceControls) {
      observations[std::string(control.key())] = [this, &control] { return described(control.key()); };
    }
    observations["all"] = [this] { return std::string(editor.isAllDefault() ? "default" : "changed"); };
    observations["differing"] = [this] { return std::to_string(editor.differingMenus()); };
    observations["notice"] = [this] { return navigation.notice().empty() ? "none" : navigation.notice(); };
  }
  const PieConfiguration& document() const { return history.document(); }
  /// The value, the range of a number, and what else is to be known.
  std::string described(std::string_view key) const {
    const auto rows = editor.rows();
    const auto row = std::ranges::find(rows, key, &AppearanceRow::key);
    if (row == rows.end()) return "hidden";
    const auto text = [](double value) { return (std::ostringstream() << std::setprecision(4) << value).str(); };
    Words words;
    if (row->kind == AppearanceRow::Kind::number) {
      words = {text(row->number), "in", text(row->range.least), text(row->range.most)};
    } else {
      words = {row->color + (row->choices.empty() ? "" : row->choices[row->chosen])};
      if (row->kind == AppearanceRow::Kind::toggle) words = {row->isOn ? "on" : "off"};
    }
    if (row->isDefault) words.emplace_back("default");
    if (!row->withoutEffect.empty()) words.emplace_back("idle");
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
  SettingsNavigation navigation{history};
  LocalizationStore localization;
  AppearanceEditor editor{history, navigation, localization};
};

TEST(Appearance, Stories) { playStories<AppearanceStory>("settings_appearance"); }

}  // namespace
}  // namespace rondora
