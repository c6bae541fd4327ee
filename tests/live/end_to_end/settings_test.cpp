#include <sys/inotify.h>
#include <sys/stat.h>
#include <unistd.h>

#include <array>
#include <atomic>
#include <chrono>
#include <fstream>
#include <functional>

#include "desktop/key_logger.h"
#include "live/end_to_end/end_to_end_test.h"
#include "platform/posix/file_descriptor.h"
#include "support/bus_service.h"

namespace rondora::live {
namespace {

constexpr std::uint8_t kZ = 52, kHome = 110;
constexpr const char* kPages[] = {"General", "Appearance", "What works here", "Backup"};

/// Something that assistive technology finds in the program's windows.
struct Control {
  int number;
  std::string role, name, description, text;
  std::vector<std::string> states;

  bool is(const char* state) const { return std::ranges::count(states, state) > 0; }
};
using Wanted = std::function<bool(const Control&)>;

Wanted named(std::string role, std::string name) {
  return [=](const Control& control) { return control.role == role && control.name == name; };
}

/// The settings, operated through the accessibility bus and by keyboard.
class SettingsTest : public EndToEndTest {
 protected:
  void SetUp() override {
    EndToEndTest::SetUp();
    desktop_.addApplication("alpha-terminal", "Alpha");
    ASSERT_TRUE(desktop_.outputOf({"busctl", "--user", "set-property", "org.a11y.Bus", "/org/a11y/bus",
                                   "org.a11y.Status", "IsEnabled", "b", "true"}));
    const auto pipe = desktop_.configHome() / "requests";
    ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
    reader_ = desktop_.start({"/usr/bin/python3", RONDORA_ACCESSIBILITY_CLIENT, pipe});
    requests_.open(pipe);
    setenv("RONDORA_TRACE", "1", 1);
    start(document({menu("Main", kControlAltB, snippetItems("main", 2))}));
    unsetenv("RONDORA_TRACE");
    showSettings();
  }
  void showSettings() {
    ASSERT_TRUE(
        desktop_.outputOf({"gdbus", "call", "--session", "--dest", "io.github.rondora.Rondora", "--object-path",
                           "/io/github/rondora/Rondora", "--method", "io.github.rondora.Rondora.ShowSettings"}));
    ASSERT_TRUE(waitForSettings());
  }

  Document ask(const std::string& request) {
    requests_ << request << std::endl;
    std::string log;
    std::size_t at = 0, end = 0;
    const bool isAnswered = waitUntil([&] {
      log = readFile(desktop_.logFile("python3"));
      at = log.find("answer ", answered_);
      end = log.find('\n', at);
      return at != log.npos && end != log.npos;
    });
    if (!isAnswered) return {};
    answered_ = end;
    return Document::parse(log.substr(at + 7, end - at - 7));
  }
  std::vector<Control> controls() {
    std::vector<Control> found;
    for (const Document& each : ask("controls")) {
      found.push_back({static_cast<int>(found.size()), each["role"], each["name"], each["description"], each["text"],
                       each["states"]});
    }
    return found;
  }
  std::optional<Control> find(const Wanted& wanted) {
    const auto all = controls();
    const auto found = std::ranges::find_if(all, wanted);
    return found == all.end() ? std::nullopt : std::optional(*found);
  }
  bool shows(const Wanted& wanted) {
    return waitUntil([&] { return find(wanted).has_value(); });
  }
  void operate(const std::string& verb, const Wanted& wanted) {
    std::optional<Control> found;
    ASSERT_TRUE(waitUntil([&] { return (found = find(wanted)) && found->is("ENABLED"); }));
    ask(verb + ' ' + std::to_string(found->number));
  }
  void press(const char* role, const std::string& name) {
    SCOPED_TRACE(name);
    operate("press", named(role, name));
  }
  void focus(const char* role, const std::string& name) {
    SCOPED_TRACE(name);
    operate("focus", named(role, name));
    ASSERT_TRUE(shows([&](auto& control) { return named(role, name)(control) && control.is("FOCUSED"); }));
  }
  /// Walks by keyboard, for lists and combo boxes take no focus from the bus.
  void tabTo(const char* role, const std::string& name) {
    // The current row of any list says so too.
    const Wanted isFocused = [](auto& control) { return control.is("FOCUSED") && control.role != "list item"; };
    for (int i = 0; i < 80; ++i) {
      const auto before = find(isFocused);
      if (before && named(role, name)(*before)) return;
      client_.tap(key::tab);
      waitUntil([&] {
        const auto now = find(isFocused);
        return now && (!before || now->number != before->number);
      });
    }
    FAIL() << "Tab does not reach " << name;
  }
  bool showsChosen(const std::string& row) {
    return shows([&](auto& control) { return named("list item", row)(control) && control.is("SELECTED"); });
  }
  /// The row that has the focus is chosen by Space.
  void openPage(const std::string& page) {
    tabTo("list", "Settings");
    client_.tap(kHome);
    client_.tap(key::space);
    for (const char* each : kPages) {
      ASSERT_TRUE(showsChosen(each)) << each;
      if (each == page) return;
      client_.tap(key::down);
    }
  }

  /// On the American layout.
  void type(const std::string& text) {
    constexpr std::string_view kRows = "1234567890-=  qwertyuiop[]  asdfghjkl;'` \\zxcvbnm,./";
    for (const char c : text) {
      const bool isShifted = std::isupper(c) != 0 || c == ':';
      const char plain = c == ':' ? ';' : static_cast<char>(std::tolower(c));
      if (isShifted) client_.keyDown(key::shift);
      client_.tap(c == ' ' ? key::space : static_cast<std::uint8_t>(10 + kRows.find(plain)));
      if (isShifted) client_.keyUp(key::shift);
    }
  }
  void undo() {
    client_.keyDown(key::control);
    client_.tap(kZ);
    client_.keyUp(key::control);
  }
  void expectNamesAndRoles() {
    for (const Control& control : controls()) {
      if (!control.is("FOCUSABLE")) continue;
      EXPECT_NE(control.name, "") << control.role << ' ' << control.text;
      EXPECT_NE(control.role, "filler") << control.name;
    }
  }
  bool waitForRecordings(std::ptrdiff_t count) {
    return waitUntil([&] {
      return count == std::ranges::count_if(program_->logLines(), [](auto& line) {
               return line.ends_with("the recording has the keyboard");
             });
    });
  }

  Document saved() {
    Document document = Document::parse(readFile(RunningProgram::document(desktop_)), nullptr, false);
    document.erase("lastModified");
    return document;
  }

  std::unique_ptr<ChildProcess> reader_;
  std::ofstream requests_;
  std::size_t answered_ = 0;
};

TEST_F(SettingsTest, EveryControlHasANameAndARole) {
  for (const char* menu : {"Main", "runningApps", "appCommands"}) {
    ASSERT_TRUE(shows([&](auto& control) { return named("text", "Name:")(control) && control.text == menu; }));
    expectNamesAndRoles();
    client_.tap(key::down);
  }
  for (const char* page : kPages) {
    openPage(page);
    expectNamesAndRoles();
  }
}

/// Items of each kind.
class NewMenuTest : public SettingsTest {
 protected:
  void addItem(const std::string& title, const std::string& kind) {
    press("push button", "Add item");
    ASSERT_TRUE(shows([&](auto& control) { return named("text", "Title:")(control) && control.text.empty(); }));
    focus("text", "Title:");
    type(title);
    tabTo("combo box", "Action:");
    constexpr std::array kKinds = {"No action",  "Open an application", "Open a web page",
                                   "Press keys", "Copy a text",         "Desktop action"};
    client_.tap(key::down);  // opens the list
    for (auto each = kKinds.begin(); *each != kind; ++each) client_.tap(key::down);
    client_.tap(key::enter);
    ASSERT_TRUE(shows([&](auto& control) { return named("combo box", "Action:")(control) && control.text == kind; }));
    expectNamesAndRoles();
  }
  bool waitForItem(std::size_t place, const Document& action) {
    return waitUntil([&] {
      const Document menu = saved()["menus"][1];
      return menu["items"].size() > place && menu["items"][place]["action"] == action;
    });
  }
  /// Opens the ring of the new menu and presses the key of an item.
  void chooseItem(std::uint8_t key) {
    ASSERT_TRUE(open());
    client_.tap(key);
    releaseChord();
    ASSERT_TRUE(program_->waitForNoRing());
  }
};

TEST_F(NewMenuTest, ActsOnItsHotkeyAndCanBeUndone) {
  std::atomic<int> started = 0;
  BusService screenSaver(desktop_.environment().at("DBUS_SESSION_BUS_ADDRESS"), "org.freedesktop.ScreenSaver",
                         [&](const auto&, const std::string& method, GVariant*) {
                           if (method == "SetActive") ++started;
                           return g_variant_new("(b)", TRUE);
                         });
  writeFile(desktop_.dataHome() / "applications" / "address-handler.desktop",
            "[Desktop Entry]\nType=Application\nName=Address\nMimeType=x-scheme-handler/rondora-test;\n"
            "Exec=xterm -T %u -e cat\n");
  writeFile(desktop_.configHome() / "mimeapps.list",
            "[Default Applications]\nx-scheme-handler/rondora-test=address-handler.desktop\n");
  KeyLogger logger(desktop_.display(), "Logger");
  ASSERT_TRUE(waitForActive("Logger"));
  showSettings();
  const Document before = saved();

  press("push button", "New menu");
  ASSERT_TRUE(shows([](auto& control) { return named("text", "Name:")(control) && control.text == "New menu"; }));
  focus("text", "Name:");
  client_.keyDown(key::control);
  client_.tap(key::a);
  client_.keyUp(key::control);
  type("From nothing");
  press("push button", "Record a hotkey for the menu “From nothing”");
  ASSERT_TRUE(waitForRecordings(1));
  holdChord(key::space);
  releaseChord();
  ASSERT_TRUE(waitUntil([&] { return saved()["menus"][1]["hotkey"]["keyCode"] == 49; }));

  addItem("Application", "Open an application");
  press("push button", "Choose an application…");
  ASSERT_TRUE(waitForActive("Choose an application"));
  type("Alpha");
  ASSERT_TRUE(shows([](auto& control) { return control.is("FOCUSED") && control.description.starts_with("Alpha"); }));
  client_.tap(key::enter);
  EXPECT_TRUE(waitForItem(0, {{"launchApp", {{"bundleIdentifier", "alpha-terminal"}}}}));
  ASSERT_TRUE(waitForSettings());
  addItem("Address", "Open a web page");
  focus("text", "Address:");
  type("rondora-test:somewhere");
  EXPECT_TRUE(waitForItem(1, {{"openURL", {{"url", "rondora-test:somewhere"}}}}));
  addItem("Keys", "Press keys");
  press("push button", "Keys:");
  ASSERT_TRUE(waitForRecordings(2));
  client_.tap(key::f9);
  EXPECT_TRUE(waitForItem(2, {{"keystroke", {{"keyCode", 101}, {"modifiers", 0}}}}));
  addItem("Snippet", "Copy a text");
  focus("text", "Text:");
  type("from nothing");
  EXPECT_TRUE(waitForItem(3, {{"snippet", {{"text", "from nothing"}}}}));
  addItem("System", "Desktop action");
  tabTo("combo box", "Do:");
  for (const auto each : {key::down, key::down, key::enter}) client_.tap(each);
  EXPECT_TRUE(waitForItem(4, {{"systemShortcut", {{"_0", "startScreenSaver"}}}}));

  client_.tap(key::escape);
  ASSERT_TRUE(waitUntil([&] { return program_->managedWindows().empty(); }));
  client_.requestActivation(logger.window());
  ASSERT_TRUE(waitForActive("Logger"));
  logger.take();
  chooseItem(key::digit2);
  EXPECT_FALSE(logger.takeUntilReleaseOf(key::f9).empty());
  chooseItem(key::digit3);
  EXPECT_TRUE(waitForClipboard("from nothing"));
  chooseItem(key::digit3 + 1);
  EXPECT_TRUE(waitUntil([&] { return started == 1; }));
  chooseItem(key::digit0);
  EXPECT_TRUE(waitForActive("Alpha"));
  chooseItem(key::digit1);
  EXPECT_TRUE(waitForActive("rondora-test:somewhere"));

  showSettings();
  constexpr int kAtOnce = 10;  // without effect when nothing is left
  while (find(named("push button", "Undo"))->is("ENABLED")) {
    for (int i = 0; i < kAtOnce; ++i) undo();
    ASSERT_TRUE(waitForRest());
  }
  EXPECT_TRUE(waitUntil([&] { return saved() == before; })) << saved().dump(1);
}

TEST_F(SettingsTest, ImportsAGoodFileOnly) {
  const Document before = saved();
  const auto offer = [&](const char* name, const std::string& content) {
    const auto file = desktop_.configHome() / name;
    writeFile(file, content);
    press("push button", "Choose File…");
    ASSERT_TRUE(waitForActive("Import"));
    type(file);
    client_.tap(key::enter);
    ASSERT_TRUE(waitForSettings());
  };
  const auto isRefused = [&](const std::string& reason) {
    return shows([&](auto& control) {
      return control.role == "label" && control.name.starts_with("Couldn't read this file.") &&
             control.name.find(reason) != control.name.npos;
    });
  };
  openPage("Backup");
  offer("foreign.json", R"({"shopping": ["milk", "eggs"]})");
  EXPECT_TRUE(isRefused("items: missing"));
  const std::string good = document({menu("Imported", kControlAltSpace, snippetItems("good", 1))}).dump();
  offer("broken.json", good.substr(0, good.size() / 2));
  EXPECT_TRUE(isRefused("parse error"));
  EXPECT_EQ(saved(), before);

  offer("good.json", good);
  ASSERT_TRUE(shows([](auto& control) { return control.name == "“good.json” would change this:"; }));
  EXPECT_EQ(saved(), before) << "the user has not agreed yet";
  press("push button", "Apply");
  EXPECT_TRUE(waitUntil([&] { return saved()["menus"][0]["name"] == "Imported"; }));
  undo();
  EXPECT_TRUE(waitUntil([&] { return saved()["menus"][0]["name"] == "Main"; }));
}

TEST_F(SettingsTest, EndOfTheProgramEntersWhatAFieldHolds) {
  openPage("Appearance");
  focus("spin button", "Radius of the ring");
  client_.keyDown(key::control);
  client_.tap(key::a);
  client_.keyUp(key::control);
  type("180");
  ASSERT_TRUE(waitForRest());
  EXPECT_EQ(program_->terminate(), 0);
  EXPECT_EQ(saved()["menus"][0]["menuRadius"], 180);
}

TEST_F(SettingsTest, EditsInQuickSuccessionAreWrittenOnce) {
  const desktop::FileDescriptor watch(inotify_init1(IN_CLOEXEC | IN_NONBLOCK));
  const auto file = RunningProgram::document(desktop_);
  // Equal events in a row would be merged, were it not for the other half of each rename.
  ASSERT_GE(inotify_add_watch(watch.get(), file.parent_path().c_str(), IN_MOVE), 0);
  const auto takeWrites = [&] {
    alignas(inotify_event) std::array<char, 4096> events;
    const auto length = read(watch.get(), events.data(), events.size());
    int writes = 0;
    for (ssize_t at = 0; at < length;) {
      const auto& event = reinterpret_cast<const inotify_event&>(events.at(static_cast<std::size_t>(at)));
      writes += (event.mask & IN_MOVED_TO) != 0 && event.name == file.filename() ? 1 : 0;
      at += static_cast<ssize_t>(sizeof(event) + event.len);
    }
    return writes;
  };
  focus("text", "Name:");
  constexpr std::chrono::milliseconds kQuick(200);
  int writes = 0;
  std::string typed;
  for (auto duration = kQuick; duration >= kQuick;) {  // until no pause of the machine came between the two
    const auto begin = std::chrono::steady_clock::now();
    for (const char* key : {"1", "2"}) {
      type(key);
      ASSERT_TRUE(waitForRest());  // each is an edit of its own
    }
    duration = std::chrono::ceil<std::chrono::milliseconds>(std::chrono::steady_clock::now() - begin);
    typed += "12";
    ASSERT_TRUE(waitUntil([&] { return saved()["menus"][0]["name"] == typed + "Main"; }));
    writes = takeWrites();
  }
  EXPECT_EQ(writes, 1);
}

}  // namespace
}  // namespace rondora::live
