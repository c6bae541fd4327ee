#include "app/command_services.h"

#include <gmock/gmock.h>

#include "commands/app_commands_menu_items.h"
#include "doubles/fake_menus.h"
#include "doubles/fake_platform.h"
#include "doubles/stories.h"
#include "input/hotkeys/hotkey_display.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;
using Problem = SubActionProblem;
using ::testing::ElementsAre;

AppSubMenuEntry entry(Kind kind) {
  AppSubMenuEntry made;
  made.kind = kind;
  return made;
}

AppSubMenuEntry menuItem(const std::string& title, const std::string& shortcut = "") {
  AppSubMenuEntry made;
  made.menuPath = {"File", title};
  if (!shortcut.empty()) made.shortcutCharacter = shortcut;
  return made;
}

/// An editor with a window and a menu bar; only its set has menu commands.
class CommandServicesTest : public ::testing::Test {
 protected:
  CommandServicesTest() {
    desktop.workspace.install("editor", "Editor");
    desktop.workspace.install("viewer", "Viewer");
    viewer = desktop.workspace.start("viewer");
    editor = desktop.workspace.start("editor");
    desktop.accessibility.calls.clock = &desktop.time;
    publish("Print", 0);
    window = addWindow(editor, "window");
    commands.resolver.onKnown = [this](const RunningApplication& each) { known.push_back(each.localizedName); };
  }
  FakeAccessibility::Element addWindow(const RunningApplication& owner, const std::string& name) {
    auto made = desktop.accessibility.addWindow(owner.processIdentifier, name, 1, false);
    made->settable = {"AXPosition", "AXSize", "AXFullScreen", "AXMinimized"};
    made->attributesByName.insert({{"AXFullScreen", false}, {"AXPosition", Point{10, 40}}, {"AXSize", Size{300, 200}}});
    made->attributesByName["AXCloseButton"] = AXElementRef(desktop.accessibility.makeElement(name + "'s button"));
    return made;
  }
  void publish(const std::string& print, int depth) {
    FakeMenuItem more{"More", "", 0, {{"Deep"}}};
    for (int i = 0; i < depth; ++i) more = {"More", "", 0, {more}};
    menus.publish(editor.processIdentifier,
                  {{"Edit"},
                   {"File", "", 0, {{"New", "n", 4 + 8}, {"Save", "s", 1, {}, false}, {print, "p", 4 + 8}, {""}, more}},
                   {"View", "", 0, {{"Zoom"}}}});
  }
  /// "title", "title[note]", and "-title" when it is not available.
  std::string resolve(const RunningApplication& application, double wait) {
    answer = "nothing";
    commands.runner.resolve(application, [this](const std::vector<PieSubAction>& actions) {
      Words words;
      for (const PieSubAction& each : actions) {
        const std::string note = each.note.empty() ? "" : "[" + each.note + "]";
        words.push_back((each.isAvailable ? "" : "-") + each.title + note);
      }
      answer = (answer == "nothing" ? "" : answer + " and ") + joined(words);
    });
    EXPECT_EQ(answer, "nothing");
    desktop.time.advance(wait);
    return answer;
  }
  std::string run(const AppSubMenuEntry& command) {
    PieSubAction action{"", "", command.kind, command.menuPath, storedShortcut(command)};
    desktop.accessibility.journal.clear();
    outcome = "none";
    commands.runner.perform(action, editor);
    desktop.time.advance(1);
    return joined(desktop.accessibility.journal) + " " + outcome;
  }

  FakePlatform desktop;
  FakeMenus menus{desktop.accessibility};
  RunningApplication viewer;
  RunningApplication editor;
  FakeAccessibility::Element window;
  LocalizationStore localization;
  std::vector<AppSubMenuEntry> set = {menuItem("New"), menuItem("Save"), menuItem("New")};
  std::vector<AppSubMenuEntry> defaults = {entry(Kind::tileLeft), entry(Kind::toggleFullScreen),
                                           entry(Kind::closeWindow), entry(Kind::quitApp), entry(Kind::quitApp)};
  std::string answer;
  std::string outcome;
  std::vector<std::string> known;
  CommandServices commands{
      {.workspace = desktop.workspace,
       .screens = desktop.screens,
       .mainQueue = desktop.time,
       .clock = desktop.time,
       .permissions = desktop.permissions,
       .log = desktop.log,
       .accessibility = desktop.accessibility,
       .localization = localization,
       .keyEquivalent = [](const auto& shortcut) { return menuShortcutText(shortcut); },
       .entries = [this](std::string_view id) { return id == "editor" ? set : defaults; },
       .ended = [this](const auto&, const auto&,
                       auto problem) { outcome = problem ? std::to_string(static_cast<int>(*problem)) : "worked"; }},
      desktop.serialQueue()};
};

TEST_F(CommandServicesTest, OffersWhatTheApplicationCanDo) {
  constexpr const char* kWithoutPlaces = "Close window Quit application";
  EXPECT_EQ(resolve(viewer, 0.1), "Quit application");
  auto view = addWindow(viewer, "view");
  desktop.time.advance(601);
  EXPECT_EQ(resolve(viewer, 0.1), std::string("Left half Full screen ") + kWithoutPlaces);
  view->attributesByName["AXFullScreen"] = true;
  view->settable = {"AXFullScreen"};
  desktop.time.advance(601);
  EXPECT_EQ(resolve(viewer, 0.1), std::string("Leave full screen ") + kWithoutPlaces);
  view->settable.clear();
  desktop.time.advance(601);
  localization.setLanguage(AppLanguage::german);
  EXPECT_EQ(resolve(viewer, 0.1), "Fenster schließen Programm beenden");

  localization.setLanguage(AppLanguage::english);
  set = {menuItem("New", "q"), menuItem("Save"), menuItem("Renamed", "P"), menuItem("Gone", "X"), menuItem("More")};
  set[2].shortcutModifiers = 4 + 8;
  const std::string offered =
      "New[Ctrl+N] -Save[Not available now] Renamed[Ctrl+P] -Gone[Not in the menus] -More[Not in the menus]";
  EXPECT_EQ(resolve(editor, 0.1), offered);
  publish("Print", 4);  // below what a crawl reads
  set.push_back(menuItem("More"));
  set.back().menuPath = {"File", "More", "More", "More", "More", "More", "Deep"};
  desktop.time.advance(601);
  EXPECT_EQ(resolve(editor, 0.1), offered + " Deep");
}

TEST_F(CommandServicesTest, HangingApplicationShowsItsStoredCommands) {
  menus.element("File…")->hangs = menus.element("View…")->hangs = true;
  set.push_back(entry(Kind::tileLeft));
  set.push_back(entry(Kind::minimizeWindow));
  window->settable = {"AXMinimized"};
  EXPECT_EQ(resolve(editor, 0.2499), "nothing");
  desktop.time.advance(0.0001);
  EXPECT_EQ(answer, "New Save Minimize window") << "while it is still being read";
  desktop.time.advance(3);
  EXPECT_EQ(resolve(viewer, 0.1), "Quit application");
  EXPECT_EQ(run(menuItem("New")), "none 1");
  menus.element("File…")->hangs = menus.element("View…")->hangs = false;
  desktop.time.advance(601);
  EXPECT_EQ(resolve(editor, 0.2), "New[Ctrl+N] -Save[Not available now] Minimize window");
  set.push_back(menuItem("Gone"));
  EXPECT_EQ(commands.runner.known(editor), std::nullopt) << "the set was edited";
  menus.element("File…")->hangs = true;
  EXPECT_EQ(resolve(editor, 1), "New[Ctrl+N] -Save[Not available now] Minimize window Gone");
}

TEST_F(CommandServicesTest, ReadingGivesWayToCommandsAndToWhatTheUserWaitsFor) {
  desktop.accessibility.calls.seconds = 0.01;
  const auto secondsUntil = [this](auto&& isOver) {
    double seconds = 0;
    for (; !isOver() && seconds < 5; seconds += 0.01) desktop.time.advance(0.01);
    return seconds;
  };
  bool isListed = false;
  commands.catalog.list(editor.processIdentifier, [&](const auto&) { isListed = true; });
  const double whole = secondsUntil([&] { return isListed; });
  commands.catalog.list(editor.processIdentifier, [](const auto& listing) { EXPECT_FALSE(listing.isComplete); });
  commands.runner.perform({"", "", Kind::minimizeWindow, {}, {}}, editor);
  EXPECT_LT(secondsUntil([&] { return outcome == "worked"; }), whole / 2);
  EXPECT_EQ(outcome, "worked");
}

TEST_F(CommandServicesTest, PrefetchedCommandsAreShownAtOnceUntilTheyAreOld) {
  int& calls = desktop.accessibility.calls.count;
  desktop.accessibility.calls.seconds = 0.001;
  commands.runner.prefetch(viewer);
  commands.runner.prefetch(editor);
  EXPECT_EQ(commands.runner.known(editor), std::nullopt);
  desktop.time.advance(0.2);
  EXPECT_THAT(known, ElementsAre("Editor"));
  int before = calls;
  EXPECT_EQ(resolve(editor, 0), "New[Ctrl+N] -Save[Not available now]");
  EXPECT_EQ(calls, before);
  desktop.time.advance(2);
  EXPECT_EQ(resolve(editor, 0), "New[Ctrl+N] Save[Shift+Cmd+S]") << "the user may have typed since";
  menus.element("Save")->attributesByName["AXEnabled"] = true;
  commands.runner.prefetch(editor);
  desktop.time.advance(0.2);
  EXPECT_EQ(resolve(editor, 0), "New[Ctrl+N] Save[Shift+Cmd+S]");
  EXPECT_THAT(known, ElementsAre("Editor", "Editor"));

  menus.element("New")->attributesByName["AXEnabled"] = false;
  run(menuItem("Save"));
  EXPECT_EQ(resolve(editor, 0), "-New[Not available now] Save[Shift+Cmd+S]");
  desktop.time.advance(599);
  EXPECT_NE(commands.runner.known(editor), std::nullopt);
  desktop.time.advance(2);
  EXPECT_EQ(commands.runner.known(editor), std::nullopt);

  resolve(editor, 1);
  window->attributesByName["AXMinimized"] = true;
  run(menuItem("Save"));
  window->attributesByName["AXMinimized"] = false;
  EXPECT_EQ(commands.runner.known(editor), std::nullopt);
  resolve(editor, 1);
  desktop.workspace.quit(editor.processIdentifier);
  for (int i = 0; i < 17; ++i) {
    viewer = desktop.workspace.start("viewer");
    addWindow(viewer, "view");
    EXPECT_EQ(commands.runner.known(editor) == std::nullopt, i > 0) << i;
    commands.runner.prefetch(viewer);
    desktop.time.advance(0.2);
  }
  viewer.processIdentifier -= 15;
  viewer.window -= 15;
  EXPECT_NE(commands.runner.known(viewer), std::nullopt);
  --viewer.processIdentifier;
  --viewer.window;
  EXPECT_EQ(commands.runner.known(viewer), std::nullopt);
}

TEST_F(CommandServicesTest, RunsEachKindOfCommand) {
  EXPECT_EQ(run(menuItem("New")), "New: AXPress worked");
  AppSubMenuEntry renamed = menuItem("Renamed", "P");
  EXPECT_EQ(run(renamed), "none 0");
  renamed.shortcutModifiers = 4 + 8;
  EXPECT_EQ(run(renamed), "Print: AXPress worked");
  EXPECT_EQ(run(menuItem("Save")), "none 2");
  menus.element("New")->refusedActions = {"AXPress"};
  EXPECT_EQ(run(menuItem("New")), "New: AXPress 3");
  desktop.permissions.trusted = false;
  EXPECT_EQ(run(menuItem("New")), "none 0");
  EXPECT_EQ(desktop.log.lines.back().text, "sub-action: menu item File > New not found");

  EXPECT_EQ(run(entry(Kind::tileRight)),
            "window: AXSize=640,770 window: AXPosition=640,30 window: AXSize=640,770 worked");
  EXPECT_EQ(run(entry(Kind::toggleFullScreen)), "window: AXFullScreen=1 worked");
  EXPECT_EQ(run(entry(Kind::closeWindow)), "window's button: AXPress worked");
  window->refusedActions = {"AXSize"};
  EXPECT_EQ(run(entry(Kind::fillScreen)), "window: AXSize=1280,770 5");
  EXPECT_EQ(run(entry(Kind::minimizeWindow)), "window: AXMinimized=1 worked");
  EXPECT_EQ(run(entry(Kind::centerWindow)), "none 4");
  desktop.workspace.hidesApplications = false;
  EXPECT_EQ(run(entry(Kind::hideApp)), "none 5");
  desktop.workspace.hidesApplications = true;
  EXPECT_EQ(run(entry(Kind::hideApp)), "none worked");
  EXPECT_EQ(desktop.workspace.frontmostApplication(), std::nullopt);
  EXPECT_EQ(run(entry(Kind::quitApp)), "none worked");
  EXPECT_EQ(run(entry(Kind::quitApp)), "none none") << "it has ended";
}

TEST_F(CommandServicesTest, PressesAMenuItemWhenItsApplicationIsInFront) {
  desktop.workspace.bringForward(viewer.processIdentifier);
  EXPECT_EQ(run(menuItem("New")), "New: AXPress worked");
  EXPECT_EQ(desktop.workspace.frontmostApplication()->processIdentifier, editor.processIdentifier);

  desktop.workspace.bringForward(viewer.processIdentifier);
  desktop.workspace.closeWindows(editor.processIdentifier);
  desktop.accessibility.journal.clear();
  commands.runner.perform({"", "", Kind::menuItem, {"File", "New"}, {}}, editor);
  desktop.time.advance(0.4);
  EXPECT_THAT(desktop.accessibility.journal, ElementsAre()) << "it may come yet";
  desktop.time.advance(0.2);
  EXPECT_THAT(desktop.accessibility.journal, ElementsAre("New: AXPress"));
}

TEST_F(CommandServicesTest, CatalogListsEveryCommandOnce) {
  Words listed;
  commands.catalog.list(editor.processIdentifier, [&](const AppMenuCatalog::Listing& listing) {
    EXPECT_TRUE(listing.isComplete);
    for (const auto& command : listing.commands) listed.push_back(command.path.back());
  });
  EXPECT_THAT(listed, ElementsAre());
  desktop.time.runUntilIdle();
  EXPECT_THAT(listed, ElementsAre("New", "Save", "Print", "Zoom", "Deep"));
}

}  // namespace
}  // namespace rondora
