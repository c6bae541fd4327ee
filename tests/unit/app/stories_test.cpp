#include <algorithm>
#include <fstream>
#include <functional>
#include <iterator>
#include <map>
#include <sstream>
#include <stdexcept>

#include "unit/app/program.h"

// Plays tests/fixtures/stories/*.txt. A story is a name, then actions ("press control space") and expectations
// ("= menu chord"), each on a line of its own; a line that starts with "#" is a comment.

namespace rondora {
namespace {

using Words = std::vector<std::string>;

struct Story {
  std::string name;
  std::vector<std::pair<std::string, std::string>> lines;  // place, text
};

std::vector<Story> readStories() {
  std::vector<Story> stories;
  for (const char* name : {"triggers", "choices", "app_commands", "document_changes", "launch", "ring_warmer"}) {
    const std::string file(name);
    std::ifstream stream(RONDORA_FIXTURES "/stories/" + file + ".txt");
    if (!stream) throw std::runtime_error("cannot read " + file);
    int number = 0;
    for (std::string line; std::getline(stream, line);) {
      ++number;
      if (line.empty() || line.starts_with("#")) continue;
      if (line.starts_with("story ")) {
        stories.push_back({line.substr(6), {}});
      } else {
        stories.back().lines.emplace_back(file + ":" + std::to_string(number), line);
      }
    }
  }
  return stories;
}

std::string joined(const Words& words) {
  std::string text;
  for (const std::string& word : words) text += (text.empty() ? "" : " ") + word;
  return text.empty() ? "none" : text;
}

template <class Range>
std::string numbers(const Range& range) {
  Words words;
  for (const auto number : range) words.push_back(std::to_string(number));
  return joined(words);
}

Words split(const std::string& text, char separator) {
  std::istringstream stream(text);
  Words words;
  for (std::string word; std::getline(stream, word, separator);) words.push_back(word);
  return words;
}

class StoryTest : public ProgramTest, public testing::WithParamInterface<Story> {
 protected:
  static std::uint16_t key(const std::string& name) {
    static const std::map<std::string, int> kKeys = {{"control", Key::kControlKey},
                                                     {"option", Key::kOptionKey},
                                                     {"shift", Key::kShiftKey},
                                                     {"command", Key::kCommandKey},
                                                     {"space", Key::kSpaceKey},
                                                     {"tab", Key::kTabKey},
                                                     {"escape", Key::kEscapeKey},
                                                     {"k", kKKey},
                                                     {"1", kOneKey},
                                                     {"fn", kFnKeyCode}};
    return static_cast<std::uint16_t>(kKeys.at(name));
  }
  /// "control+option+space", or "" for none.
  static HotkeyConfig hotkey(const std::string& text) {
    static const std::map<std::string, std::int64_t> kModifiers = {
        {"control", carbon::kControl}, {"option", carbon::kOption}, {"command", carbon::kCommand}};
    HotkeyConfig result;
    for (const std::string& name : split(text, '+')) {
      const auto modifier = kModifiers.find(name);
      if (modifier != kModifiers.end()) result.carbonModifiers |= modifier->second;
      if (modifier == kModifiers.end()) result.keyCode = key(name);
    }
    return result;
  }
  /// "name:hotkey/option/..."; a menu of the same name keeps its identifier.
  PieMenu menuFrom(const std::string& text) {
    const Words options = split(text, '/');
    const Words parts = split(options.front(), ':');
    const auto has = [&](const char* option) { return std::ranges::count(options, option) > 0; };
    const PieMenuKind special = has("running") ? PieMenuKind::runningApps : PieMenuKind::appCommands;
    PieMenu made = menu(parts[0], hotkey(parts.size() > 1 ? parts[1] : ""),
                        has("running") || has("commands") ? special : PieMenuKind::standard);
    made.id = ids.try_emplace(made.name, made.id).first->second;
    made.runningAppsMenuEnabled = !has("off");
    if (has("wide")) made.menuRadius += 10;
    for (const int fingers : {3, 4, 5}) {
      if (has(std::to_string(fingers).c_str())) made.trackpadFingerCount = fingers;
    }
    if (has("addresses")) {
      made.items[0].action = OpenURL{"https://example.org"};
      made.items[1].action = SystemShortcut{MacOSSystemActionKind::missionControl};
      desktop.workspace.systemPaths.insert("/System/Applications/Mission Control.app");
    }
    return made;
  }
  void saveMenus(const Words& texts) {
    std::vector<PieMenu> menus;
    for (const std::string& text : texts) menus.push_back(menuFrom(text));
    useMenus(std::move(menus));
    if (!std::exchange(isLaunched, true)) launch();
  }
  void strike(const Words& keys) {
    for (const auto& each : keys) desktop.keyboard.press(key(each));
    for (const auto& each : keys) desktop.keyboard.release(key(each));
  }
  void step(std::uint16_t stepped) {
    press({stepped});
    desktop.time.advance(0.1);
    release({stepped});
  }
  /// The service for the Fn key is still to come: the story says when the hotkey of the first menu fires.
  void fn(bool isDown) {
    isDown ? program.switchboard().handleHotkeyPressed({0}) : program.switchboard().handleHotkeyReleased({0});
  }
  const RunningApplication& application(const std::string& name) const { return name == "browser" ? browser : editor; }
  std::string applicationName(std::int32_t pid) const {
    return pid == browser.processIdentifier ? "browser" : pid == editor.processIdentifier ? "editor" : "unknown";
  }
  std::string applicationNames(const std::vector<std::int32_t>& pids) const {
    Words names;
    for (const std::int32_t pid : pids) names.push_back(applicationName(pid));
    return joined(names);
  }
  void bringForward(const std::string& name) {
    if (name == "none") return desktop.workspace.leaveAll();
    desktop.workspace.bringForward(application(name).processIdentifier);
  }
  void startAgent() {
    desktop.workspace.install("org.example.agent", "Agent", ActivationPolicy::accessory);
    desktop.workspace.bringForward(desktop.workspace.start("org.example.agent").processIdentifier);
    desktop.workspace.start(desktop.environment.identifier);
  }
  /// The n-th request for commands is answered with these titles.
  void answer(const Words& words) {
    std::vector<PieSubAction> commands(words.size() - 1);
    for (std::size_t i = 0; i < commands.size(); ++i) commands[i].title = words[i + 1];
    subActions.requests.at(std::stoul(words[0]) - 1)(commands);
  }
  std::string performed() const {
    Words words;
    for (const auto& [title, pid] : subActions.performed) words.push_back(title + "@" + applicationName(pid));
    return joined(words);
  }
  std::string previews() const {
    Words texts;
    for (const auto& text : desktop.windows.previews) texts.push_back(text.empty() ? "-" : text);
    return joined(texts);
  }
  std::string opened() const {
    Words all = desktop.workspace.openedUrls;
    std::ranges::copy(desktop.workspace.openedApplications, std::back_inserter(all));
    return joined(all);
  }
  void permit(const Words& words) {
    desktop.permissions.trusted = std::ranges::count(words, "keys") > 0;
    desktop.permissions.mayListen = std::ranges::count(words, "listening") > 0;
    program.permissions().refresh();
  }
  /// How many rings were prepared since the last time, once no more are due.
  std::string prepared() {
    desktop.time.advance(10);
    return std::to_string(std::exchange(desktop.overlay.warmedUp, {}).size());
  }
  bool shownWasPrepared() const {
    return std::ranges::count(desktop.overlay.warmedUp, desktop.overlay.keyPanel()->picture) > 0;
  }
  TrackpadGestureMonitor& trackpad() { return program.delegate().triggers().trackpadGestureMonitor(); }

  void act(const std::string& verb, const Words& words);
  std::string observe(const std::string& what);

  std::map<std::string, Uuid> ids;
  bool isLaunched = false;
};

void StoryTest::act(const std::string& verb, const Words& words) {
  using W = const Words&;
  const std::map<std::string, std::function<void(W)>> actions = {
      {"menus", [&](W texts) { saveMenus(texts); }},
      {"press", [&](W keys) { std::ranges::for_each(keys, [&](auto& each) { desktop.keyboard.press(key(each)); }); }},
      {"release",
       [&](W keys) { std::ranges::for_each(keys, [&](auto& each) { desktop.keyboard.release(key(each)); }); }},
      {"strike", [&](W keys) { strike(keys); }},
      {"repeat", [&](W keys) { desktop.keyboard.repeat(key(keys[0])); }},
      {"lose", [&](W keys) { desktop.keyboard.releaseUnseen(key(keys[0])); }},
      {"fn", [&](W w) { fn(w[0] == "down"); }},
      {"step", [&](W keys) { step(key(keys[0])); }},
      {"wait", [&](W w) { desktop.time.advance(std::stod(w[0])); }},
      {"point", [&](W w) { pointAtSector(std::stoul(w[0]) - 1); }},
      {"centre", [&](W) { desktop.overlay.moveTo(kPointer); }},
      {"click", [&](W) { desktop.overlay.click(); }},
      {"deafen", [&](W) { trackpad().stop(); }},
      {"tap", [&](W w) { trackpad().onTap(std::stol(w[0])); }},
      {"request", [&](W w) { EXPECT_TRUE(program.delegate().trigger(ids.at(w[0]).string())); }},
      {"front", [&](W w) { bringForward(w[0]); }},
      {"quit", [&](W w) { desktop.workspace.quit(application(w[0]).processIdentifier); }},
      {"agent", [&](W) { startAgent(); }},
      {"targetless", [&](W) { subActions.target.reset(); }},
      {"unidentified", [&](W) { subActions.target->bundleIdentifier.reset(); }},
      {"answer", [&](W w) { answer(w); }},
      {"newcomer", [&](W) { desktop.defaults.values.clear(); }},
      {"permit", [&](W w) { permit(w); }},
      {"taken",
       [&](W) {
         desktop.keyboard.foreignOwners.insert({49, kControlOption});
       }},
      {"freed", [&](W) { desktop.keyboard.foreignOwners.clear(); }},
      {"tray", [&](W w) { desktop.statusBar.change(w[0] == "gone" ? std::optional(w[0]) : std::nullopt); }},
      {"screens", [&](W) { desktop.screens.change({}); }},
      {"activate", [&](W) { desktop.shell.becomeActive(); }},
      {"finish", [&](W) { desktop.windows.closeOnboarding(); }},
      {"choose", [&](W w) { desktop.statusBar.choose(w[0] == "settings" ? 0 : 2); }},
      {"reopen", [&](W) { EXPECT_TRUE(program.delegate().applicationShouldHandleReopen(false)); }},
      {"icons", [&](W) { program.delegate().iconsChanged(); }},
      {"end", [&](W) { program.end(); }},
  };
  ASSERT_TRUE(actions.contains(verb));
  actions.at(verb)(words);
  desktop.time.runUntilIdle();
}

std::string StoryTest::observe(const std::string& what) {
  const auto count = [](auto number) { return std::to_string(number); };
  const auto orNone = [](const std::string& text) { return text.empty() ? "none" : text; };
  const std::map<std::string, std::function<std::string()>> observations = {
      {"menu", [&] { return isMenuUp() ? shownMenu() : "none"; }},
      {"highlight", [&] { return orNone(highlightedItem()); }},
      {"front", [&] { return applicationName(desktop.workspace.frontmostApplication()->processIdentifier); }},
      {"restored", [&] { return applicationNames(desktop.workspace.activationRequests); }},
      {"panels", [&] { return count(desktop.overlay.panels.size()); }},
      {"previews", [&] { return previews(); }},
      {"keystrokes", [&] { return count(desktop.keyEvents.posted.size() / 2); }},
      {"clipboard", [&] { return desktop.pasteboard.string.value_or("none"); }},
      {"opened", [&] { return opened(); }},
      {"fingers", [&] { return numbers(trackpad().fingerCounts()); }},
      {"requests", [&] { return count(subActions.requests.size()); }},
      {"performed", [&] { return performed(); }},
      {"prefetched", [&] { return applicationNames(subActions.prefetched); }},
      {"onboarding", [&] { return desktop.windows.isOnboardingUp ? "up" : "none"; }},
      {"settings", [&] { return count(desktop.windows.settingsShown); }},
      {"settings-windows", [&] { return count(desktop.windows.settingsWindowsMade); }},
      {"introduced", [&] { return desktop.defaults.boolean(AppLaunchState::kHasSeenPermissionIntro) ? "yes" : "no"; }},
      {"listen-requests", [&] { return count(desktop.permissions.listenRequests); }},
      {"activations", [&] { return count(desktop.shell.activations); }},
      {"terminations", [&] { return count(desktop.shell.terminations); }},
      {"outlives-windows", [&] { return desktop.shell.shouldTerminateAfterLastWindowClosed() ? "no" : "yes"; }},
      {"registered", [&] { return desktop.keyboard.isRegistered(49, kControlOption) ? "yes" : "no"; }},
      {"tray-problem", [&] { return program.statusItemProblem().value_or("none"); }},
      {"log-lines", [&] { return count(desktop.log.lines.size()); }},
      {"prepared", [&] { return prepared(); }},
      {"prepared-now", [&] { return count(desktop.overlay.warmedUp.size()); }},
      {"shown-was-prepared", [&] { return shownWasPrepared() ? "yes" : "no"; }},
  };
  return observations.contains(what) ? observations.at(what)() : "nothing known as " + what;
}

TEST_P(StoryTest, Holds) {
  for (const auto& [place, text] : GetParam().lines) {
    SCOPED_TRACE(place + ": " + text);
    Words words = split(text, ' ');
    const bool isExpectation = words.front() == "=";
    if (isExpectation) words.erase(words.begin());
    const std::string first = words.front();
    words.erase(words.begin());
    if (isExpectation) {
      ASSERT_EQ(observe(first), joined(words));
    } else {
      ASSERT_NO_FATAL_FAILURE(act(first, words));
    }
  }
}

INSTANTIATE_TEST_SUITE_P(Stories, StoryTest, testing::ValuesIn(readStories()),
                         [](const auto& each) { return each.param.name; });

}  // namespace
}  // namespace rondora
