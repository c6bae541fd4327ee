#include <cmath>

#include "doubles/stories.h"
#include "pie/geometry/sector_geometry.h"
#include "unit/app/program.h"

namespace rondora {
namespace {

class Desktop : public ProgramTest {
 public:
  using ProgramTest::browser;
  using ProgramTest::desktop;
  using ProgramTest::editor;
  using ProgramTest::launchWith;
  using ProgramTest::menu;
  using ProgramTest::press;
  using ProgramTest::program;
  using ProgramTest::release;

 private:
  void TestBody() override {}
};

/// The settings show the menu "main" of the program, with its items browser, snippet, keystroke and nothing.
struct SettingsStory : Story, Desktop {
  using W = const Words&;

  SettingsStory() {
    PieMenu other = menu("other", {});
    other.items.clear();
    other.trackpadFingerCount = 4;
    PieMenu main = menu("main", {});
    for (PieMenuItem& each : main.items) each.id = desktop.random.uuid();
    launchWith({main, other});
    models.emplace(program.windowContents().settings());
    const auto row = [this](W w) { return models->menu.items().at(std::stoul(w[0])).item.id; };
    const auto shown = [this] { return models->menu.menu()->id; };
    actions = {{"add-menu", [this](W) { models->menus.add(); }},
               {"copy-menu", [=, this](W) { models->menus.duplicate(shown()); }},
               {"remove-menu", [=, this](W) { models->menus.remove(shown()); }},
               {"move-menu", [=, this](W w) { models->menus.move(shown(), std::stoul(w[0])); }},
               {"open", [this](W w) { models->navigation.openMenu(models->menus.rows().at(std::stoul(w[0])).id); }},
               {"step-on", [this](W w) { models->navigation.step(std::stoi(w[0])); }},
               {"switch", [this](W w) { models->menu.setEnabled(w[0] == "on"); }},
               {"name", [this](W w) { models->menu.setName(joined(w)); }},
               {"fingers", [this](W w) { models->menu.setFingerCount(std::stoi(w[0])); }},
               {"find", [this](W w) { query = joined(w); }},
               {"choose", [=, this](W w) { models->navigation.choose(row(w)); }},
               {"add", [this](W) { models->menu.addItem(); }},
               {"copy", [=, this](W w) { models->menu.copyItem(row(w)); }},
               {"paste", [this](W) { models->menu.pasteItem(); }},
               {"duplicate", [=, this](W w) { models->menu.duplicateItem(row(w)); }},
               {"remove", [=, this](W w) { models->menu.removeItem(row(w)); }},
               {"kind", [this](W w) { models->item.setKind(ItemEditor::kKinds.at(std::stoul(w[0]))); }},
               {"title", [this](W w) { models->item.setTitle(joined(w)); }},
               {"application", [this](W w) { models->item.setApplication(w[0]); }},
               {"address", [this](W w) { models->item.setAddress(w.empty() ? "" : w[0]); }},
               {"text", [this](W w) { models->item.setSnippet(joined(w)); }},
               {"label", [this](W w) { models->item.setLabel(w.empty() ? "" : w[0]); }},
               {"record", [this](W) { models->item.toggleRecording(); }},
               {"keys", [this](W) { typeControlK(); }},
               {"lock", [this](W) { desktop.session.lock(); }},
               {"try",
                [this](W) {
                  models->item.tryIt();
                  desktop.time.advance(1);
                }},
               {"no-handlers", [this](W) { desktop.workspace.opensUrls = false; }},
               {"press", [this](W w) { models->preview.press(at(w)); }},
               {"drag", [this](W w) { models->preview.moveTo(at(w)); }},
               {"let-go", [this](W) { models->preview.release(); }},
               {"escape", [this](W) { models->preview.cancel(); }},
               {"step", [this](W w) { models->preview.step(std::stoi(w[0])); }},
               {"move-chosen", [this](W w) { models->preview.moveChosen(std::stoi(w[0])); }},
               {"turn", [this](W w) { models->preview.turnBy(std::stoi(w[0])); }},
               {"undo", [this](W) { models->history.undo(); }},
               {"wait", [this](W w) { desktop.time.advance(std::stod(w[0])); }}};
    observations = {
        {"menus", [this] { return menus(); }},
        {"shown", [this] { return models->menu.menu()->name; }},
        {"page", [this] { return std::to_string(int(models->navigation.page())); }},
        {"items", [this] { return items(); }},
        {"chosen", [this] { return models->navigation.item() ? models->navigation.item()->title : "none"; }},
        {"icon", [this] { return models->navigation.item()->icon; }},
        {"hits", [this] { return hits(); }},
        {"notice", [this] { return orNone(models->navigation.notice()); }},
        {"problem", [this] { return orNone(models->item.problem()); }},
        {"keystroke", [this] { return models->item.keystrokeText(); }},
        {"keyboard", [this] { return desktop.keyboard.isTaken() ? "taken" : "free"; }},
        {"label-problem", [this] { return orNone(models->item.labelProblem()); }},
        {"automatic", [this] { return models->item.automaticLabel(); }},
        {"attempt", [this] { return orNone(models->item.attempt()); }},
        {"clipboard", [this] { return orNone(desktop.pasteboard.string.value_or("")); }},
        {"front", [this] { return desktop.workspace.frontmostApplication()->localizedName; }},
        {"rotation", [this] { return std::to_string(std::lround(models->menu.menu()->rotationDegrees)); }},
        {"ticks", [this] { return std::to_string(desktop.haptics.performed.size()); }},
        {"saved-items", [this] { return std::to_string(program.config().current().menus[0].items.size()); }}};
  }

  static std::string orNone(const std::string& text) { return text.empty() ? "none" : text; }
  std::string menus() const {
    Words words;
    for (const MenuList::Row& row : models->menus.rows()) words.push_back(row.name + (row.isOff ? "-" : ""));
    return joined(words);
  }
  std::string items() const {
    Words words;
    for (const auto& row : models->menu.items()) words.push_back(row.title + ":" + row.label);
    return joined(words);
  }
  std::string hits() const {
    Words words;
    for (const auto& hit : models->menus.search(query)) words.push_back(hit.title + "@" + hit.place);
    return joined(words);
  }
  void typeControlK() {
    press({Key::kControlKey, kKKey});
    release({kKKey, Key::kControlKey});
  }
  /// The middle of a sector, or so many degrees beyond it, on the ring or on its rim: "1", "1 30", "1 0 rim".
  Point at(W w) const {
    const RingLayout& layout = models->preview.ring().layout;
    const double degrees = w.size() > 1 ? std::stod(w[1]) : 0;
    const double angle = layout.sectorMiddle(std::stoul(w[0])) + degrees * std::numbers::pi / 180;
    const double radius = w.size() > 2 ? layout.outerRadius + 8 : (layout.innerRadius + layout.outerRadius) / 2;
    return layout.center() + Point{std::cos(angle), std::sin(angle)} * radius;
  }

  std::optional<SettingsModels> models;
  std::string query;
};

TEST(SettingsMenus, Stories) { playStories<SettingsStory>("settings_menus"); }

}  // namespace
}  // namespace rondora
