#include <signal.h>

#include <chrono>
#include <filesystem>
#include <set>
#include <sstream>

#include "live/end_to_end/end_to_end_test.h"

namespace rondora::live {
namespace {

constexpr const char* kNoBus = "DBUS_SESSION_BUS_ADDRESS=unix:path=/nonexistent";

/// Second starts, and menus that other programs of the session request.
class SessionTest : public EndToEndTest {
 protected:
  /// Starts the program once more, and returns its exit status once it has ended.
  std::optional<int> startAgain(const std::string& variable = "LC_ALL=C.UTF-8") {
    const auto second = desktop_.start({"env", variable, RunningProgram::file()});
    if (!waitUntil([&] { return !second->isRunning(); })) return std::nullopt;
    return second->wait();
  }

  /// A script starts the program, its "$0", which finds `text` as its document.
  void startBy(const std::string& script, const std::string& text) {
    program_.emplace(desktop_, client_, text, Introduction::seen,
                     std::vector<std::string>{"sh", "-c", script, RunningProgram::file()});
  }

  static std::vector<std::string> keptDocuments(const std::filesystem::path& folder) {
    std::vector<std::string> result;
    for (const auto& entry : std::filesystem::directory_iterator(folder)) {
      if (!entry.path().filename().string().starts_with("config.broken-")) continue;
      std::filesystem::permissions(entry.path(), std::filesystem::perms::owner_read);
      result.push_back(readFile(entry.path()));
    }
    return result;
  }
};

TEST_F(SessionTest, SecondStartShowsTheSettingsOfTheFirst) {
  start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4))}));
  EXPECT_EQ(startAgain(), 0);
  EXPECT_TRUE(waitForSettings());
  closeWindows();
  EXPECT_EQ(startAgain("RONDORA_RELAUNCH=1"), 0);
  EXPECT_TRUE(waitForRest() && program_->managedWindows().empty()) << "a relaunched program asks for no window";
  EXPECT_EQ(startAgain(kNoBus), 0) << "found by the lock file";
  EXPECT_TRUE(waitForSettings());
  EXPECT_EQ(program_->boundKeys(), 4U);

  kill(program_->pid(), SIGKILL);
  EXPECT_TRUE(program_->waitForExit());
  start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4))}));
  EXPECT_EQ(startAgain(kNoBus), 0) << "files of a killed instance block nothing";
  EXPECT_TRUE(waitForSettings());
}

TEST_F(SessionTest, EditByHandIsKeptAtTheNextSaveAndCanBeImported) {
  start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4))}));
  const auto file = RunningProgram::document(desktop_);
  const std::string edited = document({menu("Edited", kControlAltSpace, snippetItems("Edited", 4))}).dump();
  writeFile(file, edited);
  ASSERT_EQ(startAgain(), 0);
  ASSERT_TRUE(waitForSettings());
  // A new menu is saved.
  client_.keyDown(key::control);
  client_.tap(key::n);
  client_.keyUp(key::control);
  std::string kept;
  ASSERT_TRUE(waitUntil([&] {
    for (const auto& entry : std::filesystem::directory_iterator(file.parent_path())) {
      if (entry.path().filename().string().starts_with("config.edited-")) kept = readFile(entry.path());
    }
    return !kept.empty();
  }));
  EXPECT_EQ(kept, edited);
  EXPECT_TRUE(waitUntil([&] { return readFile(file).find("Edited 1") == std::string::npos; }));
  // From its name back to the pages, of which the third has the finding; past its first button.
  constexpr int kTabsToImport = 3;
  client_.keyDown(key::shift);
  client_.tap(key::tab);
  client_.keyUp(key::shift);
  for (int i = 0; i < 3; ++i) client_.tap(key::down);
  for (int i = 0; i < kTabsToImport; ++i) client_.tap(key::tab);
  client_.tap(key::space);
  EXPECT_TRUE(waitUntil([&] { return readFile(file).find("Edited 1") != std::string::npos; })) << readFile(file);
}

TEST_F(SessionTest, DocumentThatMayNotBeReadIsKept) {
  const std::string old = document({menu("Old", kControlAltSpace, snippetItems("Old", 4))}).dump();
  // Without the privilege that lets root read every file.
  startBy(R"sh(chmod 000 "$XDG_CONFIG_HOME/Rondora/config.json"
               drop=--bounding-set=-dac_override,-dac_read_search
               [ "$(id -u)" -ne 0 ] || exec setpriv "$drop" "$0"
               exec "$0")sh",
          old);
  EXPECT_TRUE(waitForSettings()) << "they tell of it";
  EXPECT_EQ(keptDocuments(RunningProgram::document(desktop_).parent_path()), std::vector{old});
}

TEST_F(SessionTest, FullDiskLosesNothing) {
  const std::string old = "{" + std::string(9000, ' ');
  // The folder becomes a file system of its own, which a third file fills.
  startBy(R"sh(exec unshare --map-current-user --keep-caps --mount sh -c '
                 cd "$XDG_CONFIG_HOME" && mv Rondora Disk && mkdir Rondora &&
                 mount -t tmpfs -o size=24k,mode=700 none Rondora && cp Disk/* Rondora/ || exit
                 head -c 24k /dev/zero >Rondora/filler 2>&1 || exec "$0"' "$0")sh",
          old);
  EXPECT_TRUE(waitForSettings()) << "they tell of it";
  const auto folder =
      "/proc/" + std::to_string(program_->pid()) + "/root" + RunningProgram::document(desktop_).parent_path().string();
  EXPECT_EQ(keptDocuments(folder), std::vector{old});
  EXPECT_NE(readFile(desktop_.logFile("sh")).find("No space left on device"), std::string::npos);
}

TEST_F(SessionTest, ProgramsThatOwnKeysCanOpenMenus) {
  const Document other = menu("Other", {}, snippetItems("Other", 4), -45);
  start(document({menu("Main", kControlAltSpace, snippetItems("Main", 4)), other}));
  ASSERT_TRUE(client_.grabKey(key::f9, 0));
  client_.keyDown(key::f9);
  ASSERT_TRUE(trigger(other["id"])) << "the key is down, and so is its owner's grab";
  client_.keyUp(key::f9);
  ASSERT_TRUE(program_->waitForRing());
  EXPECT_FALSE(client_.keyboardIsFree());
  client_.tap(key::digit1);
  EXPECT_TRUE(waitForClipboard("Other 1"));
  expectAtRest();

  ASSERT_TRUE(trigger(other["id"]));
  ASSERT_TRUE(program_->waitForRing());
  ASSERT_TRUE(trigger(other["id"]));
  expectAtRest();
  const auto lines = program_->logLines().size();
  EXPECT_FALSE(trigger("Another"));
  EXPECT_EQ(program_->logLines().size(), lines + 1) << readFile(desktop_.logFile("rondora"));
}

TEST_F(SessionTest, LockAndSleepCloseTheRingAlsoAfterTheBusRestarted) {
  const Document main = menu("Main", kControlAltSpace, snippetItems("Main", 4));
  constexpr std::chrono::seconds kBeforeTheRingIsIdle{10};
  start(document({main}));
  using Words = std::vector<std::string>;
  for (const auto& [path, signal] :
       {std::pair<std::string, Words>{"/org/freedesktop/login1/session/_32", {"org.freedesktop.login1.Session.Lock"}},
        {"/org/freedesktop/login1", {"org.freedesktop.login1.Manager.PrepareForSleep", "true"}},
        {"/ScreenSaver", {"org.freedesktop.ScreenSaver.ActiveChanged", "true"}}}) {
    Words command{"gdbus", "emit", "--session", "--object-path", path, "--signal"};
    command.insert(command.end(), signal.begin(), signal.end());
    for (const bool restarts : {false, true}) {
      if (restarts) desktop_.restartBus();
      ASSERT_TRUE(waitUntil([&] { return trigger(main["id"]).has_value(); }));
      ASSERT_TRUE(program_->waitForRing());
      // Once more while the program still connects again.
      EXPECT_TRUE(waitUntil([&] { return desktop_.outputOf(command) && !program_->ring(); }, kBeforeTheRingIsIdle))
          << path;
      expectAtRest();
    }
  }
}

TEST_F(SessionTest, HangingBusIsDoneWithoutAndARestartedOneIsUsed) {
  constexpr std::chrono::seconds kBeforeTheLibrariesGiveUp{10};
  const Document main = menu("Main", kControlAltSpace, snippetItems("Main", 4), -45);
  const auto chooseFirst = [&] {
    choose(kMiddleOfRing, 0);
    EXPECT_TRUE(waitForClipboard("Main 1"));
  };
  kill(desktop_.busProcess(), SIGSTOP);
  start(document({main}));
  chooseFirst();
  kill(program_->pid(), SIGTERM);
  EXPECT_TRUE(waitUntil([&] { return !program_->isRunning(); }, kBeforeTheLibrariesGiveUp));
  kill(desktop_.busProcess(), SIGCONT);

  start(document({main}));
  desktop_.restartBus();
  EXPECT_TRUE(waitUntil([&] { return trigger(main["id"]).has_value(); }));
  ASSERT_TRUE(program_->waitForRing());
  client_.tap(key::escape);
  expectAtRest();
  kill(program_->pid(), SIGSTOP);
  EXPECT_EQ(startAgain(), 1) << "the first does not answer";
  kill(program_->pid(), SIGCONT);
  kill(desktop_.busProcess(), SIGSTOP);
  kill(program_->pid(), SIGTERM);
  EXPECT_TRUE(waitUntil([&] { return !program_->isRunning(); }, kBeforeTheLibrariesGiveUp));
  EXPECT_EQ(program_->waitForExit(), 0);
}

TEST_F(SessionTest, ApplicationsGetTheEnvironmentOfTheSession) {
  const auto file = desktop_.dataHome() / "environment";
  const auto application = [&](const std::string& name) {
    writeFile(desktop_.dataHome() / "applications" / (name + ".desktop"),
              "[Desktop Entry]\nType=Application\nName=A\nExec=cp /proc/self/environ " + file.string() + "\n");
    return applicationItem(name);
  };
  const Document main = menu("Main", kControlAltSpace, {application("a"), application("b")});
  // Of the session, as the program gets it: another platform, no standard descriptors, a bus that hangs.
  kill(desktop_.busProcess(), SIGSTOP);
  program_.emplace(desktop_, client_, document({main}).dump(), Introduction::seen,
                   std::vector<std::string>{"env", "QT_QPA_PLATFORM=wayland", "sh", "-c", R"(exec "$0" <&- >&- 2>&-)",
                                            RunningProgram::file()});
  const std::string descriptors = "/proc/" + std::to_string(program_->pid()) + "/fd/";
  for (const char* descriptor : {"0", "1", "2"}) {
    EXPECT_EQ(std::filesystem::read_symlink(descriptors + descriptor), "/dev/null");
  }
  choose(0, -kMiddleOfRing);
  ASSERT_TRUE(waitUntil([&] { return !readFile(file).empty(); }));
  const auto variables = [](const std::filesystem::path& environment) {
    std::istringstream text(readFile(environment));
    std::set<std::string> lines;
    for (std::string line; std::getline(text, line, '\0');) {
      if (!line.starts_with("GIO_LAUNCHED") && !line.starts_with("PWD=")) lines.insert(line);
    }
    return lines;
  };
  EXPECT_EQ(variables(file), variables("/proc/" + std::to_string(program_->pid()) + "/environ"));
  kill(desktop_.busProcess(), SIGCONT);
}

}  // namespace
}  // namespace rondora::live
