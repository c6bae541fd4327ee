#include <csignal>
#include <fstream>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

/// Control is part of the shortcut, Command is not.
constexpr int kControlShortcut = 12;

Document entry(const std::string& kind) { return {{"kind", kind}}; }

Document command(const std::string& menu, const std::string& title) {
  return {{"kind", "menuItem"}, {"menuPath", {menu, title}}};
}

Document retitled(const std::string& menu, const std::string& character) {
  Document retitled = command(menu, "A title of long ago");
  retitled["shortcutCharacter"] = character;
  retitled["shortcutModifiers"] = kControlShortcut;
  return retitled;
}

/// The ring of the active application's commands, opened by Control, Alt and Space.
class AppCommandsTest : public EndToEndTest {
 protected:
  void startWith(const std::string& application, std::vector<Document> entries) {
    Document commands = menu("Commands", kControlAltSpace, {});
    commands["kind"] = "appCommands";
    Document whole = document({commands});
    whole["appSubMenus"] = {{{"bundleIdentifier", application}, {"entries", std::move(entries)}}};
    start(whole);
  }
  void startEditor() {
    std::ofstream(file()) << "text\n";
    editor_ = desktop_.start({"mousepad", "--disable-server", file().string()});
    ASSERT_TRUE(waitUntil([&] { return editorWindow() != XCB_NONE; }));
    ASSERT_TRUE(waitUntil([&] { return client_.activeWindow() == editorWindow(); }));
  }
  xcb_window_t editorWindow() { return windowTitled("notes.txt"); }
  xcb_window_t windowTitled(const std::string& part) {
    for (const xcb_window_t window : client_.clientList()) {
      if (client_.title(window).find(part) != std::string::npos) return window;
    }
    return XCB_NONE;
  }
  bool hasLogged(const std::string& text) {
    const auto lines = program_->logLines();
    return std::any_of(lines.begin(), lines.end(),
                       [&](const std::string& line) { return line.find(text) != std::string::npos; });
  }
  /// Opens the ring and presses the label of a sector.
  void chooseByKey(std::uint8_t keyCode) {
    ASSERT_TRUE(open());
    client_.tap(keyCode);
    ASSERT_TRUE(program_->waitForNoRing());
    releaseChord();
  }
  /// Like a user who chooses again when the application was not ready to show its menus.
  template <class Condition>
  bool chooseByKeyUntil(Condition happened, std::uint8_t keyCode) {
    return waitUntil([&] {
      const auto before = failures();
      chooseByKey(keyCode);
      return HasFatalFailure() || (waitUntil([&] { return happened() || failures() > before; }) && happened());
    });
  }
  std::ptrdiff_t failures() {
    return std::ranges::count_if(program_->logLines(),
                                 [](auto& line) { return line.find("sub-action: menu item") != line.npos; });
  }
  std::filesystem::path file() const { return desktop_.configHome() / "notes.txt"; }

  std::unique_ptr<ChildProcess> editor_;
};

TEST_F(AppCommandsTest, CommandsOfTheActiveApplicationHappen) {
  startWith("org.xfce.mousepad", {command("File", "Open..."), retitled("File", "N"), command("File", "Nowhere"),
                                  entry("minimizeWindow"), entry("quitApp")});
  ASSERT_NO_FATAL_FAILURE(startEditor());
  ASSERT_TRUE(chooseByKeyUntil([&] { return windowTitled("Open") != XCB_NONE; }, key::digit0));
  client_.tap(key::escape);
  ASSERT_TRUE(waitUntil([&] { return client_.activeWindow() == editorWindow(); }));

  EXPECT_TRUE(chooseByKeyUntil([&] { return windowTitled("Untitled") != XCB_NONE; }, key::digit1))
      << "found by its shortcut";
  ASSERT_NO_FATAL_FAILURE(chooseByKey(key::digit2));
  EXPECT_TRUE(waitUntil([&] { return hasLogged("Nowhere not found"); }));
}

TEST_F(AppCommandsTest, DialogInFrontHasTheCommandsOfItsOwnWindow) {
  startWith("org.xfce.mousepad",
            {command("File", "New Window"), command("File", "Open..."), command("File", "Close Window")});
  ASSERT_NO_FATAL_FAILURE(startEditor());
  const auto frontTitled = [this](const char* title) {
    return client_.title(client_.activeWindow()).find(title) != std::string::npos;
  };
  ASSERT_TRUE(chooseByKeyUntil([&] { return frontTitled("Untitled"); }, key::digit0));
  ASSERT_TRUE(chooseByKeyUntil([&] { return frontTitled("Open"); }, key::digit1));
  EXPECT_TRUE(chooseByKeyUntil([&] { return windowTitled("Untitled") == XCB_NONE; }, key::digit2));
  EXPECT_NE(editorWindow(), XCB_NONE);
}

struct ToolkitCommand {
  const char* toolkit;
  std::string application;
  std::string menu;
  std::string title;
  /// The window that the command opens.
  std::string opens;
};

void PrintTo(const ToolkitCommand& command, std::ostream* out) { *out << command.toolkit; }

class ToolkitCommandTest : public AppCommandsTest, public testing::WithParamInterface<ToolkitCommand> {};

TEST_P(ToolkitCommandTest, IsChosenByKeyAndHappens) {
  const auto& [toolkit, application, title, item, opens] = GetParam();
  Document commands = menu("Commands", kControlAltSpace, {});
  commands["kind"] = "appCommands";
  commands["appCommandsDefaultEntries"] = {command(title, item)};
  start(document({commands}));
  const auto process = desktop_.start({application});
  ASSERT_TRUE(waitUntil([&] { return client_.ownerOf(client_.activeWindow()) == process->pid(); }));
  const auto count = [&, window = opens] { return client_.windowsTitled(window).size(); };
  const std::size_t before = count();
  EXPECT_TRUE(chooseByKeyUntil([&] { return count() > before; }, key::digit0));
}

INSTANTIATE_TEST_SUITE_P(AppCommands, ToolkitCommandTest,
                         testing::Values(ToolkitCommand{"Gtk4", "gtk4-demo-application", "Application", "New",
                                                        "Application Class"},
                                         ToolkitCommand{"Qt6", "/usr/lib/qt6/bin/linguist", "Phrases",
                                                        "New Phrase Book...", "Create New Phrase Book"},
                                         ToolkitCommand{"Qt5", "featherpad", "File", "Open", "Open file..."}),
                         [](const auto& tested) { return std::string(tested.param.toolkit); });

TEST_F(AppCommandsTest, FileManagerCreatesAFolder) {
  const auto folder = desktop_.dataHome() / "files";
  std::filesystem::create_directories(folder);
  Document commands = menu("Commands", kControlAltSpace, {});
  commands["kind"] = "appCommands";
  commands["appCommandsDefaultEntries"] = {{{"kind", "menuItem"}, {"menuPath", {"File", "Create New", "Folder"}}}};
  start(document({commands}));
  const auto manager = desktop_.start({"pcmanfm-qt", folder.string()});
  ASSERT_TRUE(waitUntil([&] { return client_.title(client_.activeWindow()) == "files"; }));
  ASSERT_TRUE(chooseByKeyUntil([&] { return client_.title(client_.activeWindow()) == "Create Folder"; }, key::digit0));
  client_.tap(key::enter);
  EXPECT_TRUE(waitUntil([&] { return !std::filesystem::is_empty(folder); }));
}

TEST_F(AppCommandsTest, StoppedApplicationDoesNotDelayTheRing) {
  startWith("org.xfce.mousepad", {command("File", "Open..."), entry("tileLeft"), entry("quitApp")});
  ASSERT_NO_FATAL_FAILURE(startEditor());
  kill(editor_->pid(), SIGSTOP);
  ASSERT_TRUE(open());
  releaseChord();
  EXPECT_TRUE(program_->waitForNoRing());
  kill(editor_->pid(), SIGCONT);
  expectAtRest();
}

TEST_F(AppCommandsTest, ApplicationThatEndsTakesNothingWithIt) {
  startWith("org.xfce.mousepad", {command("File", "Open..."), entry("quitApp")});
  ASSERT_NO_FATAL_FAILURE(startEditor());
  ASSERT_TRUE(open());
  kill(editor_->pid(), SIGKILL);
  ASSERT_TRUE(waitForActive("Bystander"));
  client_.tap(key::digit1);
  releaseChord();
  expectAtRest();
  EXPECT_TRUE(program_->isRunning());
}

}  // namespace
}  // namespace rondora::live
