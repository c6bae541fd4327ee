#include "doubles/stories.h"

#include <algorithm>
#include <iterator>
#include <map>
#include <sstream>

#include "unit/app/program.h"

namespace rondora {
namespace {

Words split(const std::string& text, char separator) {
  std::istringstream stream(text);
  Words words;
  for (std::string word; std::getline(stream, word, separator);) words.push_back(word);
  return words;
}

/// The vocabulary of fixtures/stories/*.txt.
class ProgramStory : public ProgramTest, public Story {
 public:
  ProgramStory() {
    addActions();
    addObservations();
    for (auto& [verb, action] : actions) {
      action = [this, action = std::move(action)](const Words& words) {
        action(words);
        desktop.time.runUntilIdle();
      };
    }
  }

 private:
  void TestBody() override {}

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
  static StatusItemVisibility tray(const std::string& state) {
    if (state == "gone") return StatusItemVisibility::noTray;
    if (state == "full") return StatusItemVisibility::noRoom;
    return state == "restarting" ? StatusItemVisibility::notTaken : StatusItemVisibility::visible;
  }
  /// "control+option+space", or "" for none.
  static HotkeyConfig hotkey(const std::string& text) {
    static const std::map<std::string, std::int64_t> kModifiers = {{"control", carbon::kControl},
                                                                   {"option", carbon::kOption},
                                                                   {"command", carbon::kCommand},
                                                                   {"function", carbon::kFunction}};
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
  void useHaptics(bool isOn) {
    program.edits().edit([isOn](PieConfiguration& document) { document.hapticFeedbackEnabled = isOn; });
    program.edits().flush();
  }
  std::function<void(const Words&)> keys(void (FakeKeyboard::*act)(std::uint16_t)) {
    return [this, act](const Words& names) {
      for (const std::string& name : names) (desktop.keyboard.*act)(key(name));
    };
  }
  void step(std::uint16_t stepped) {
    press({stepped});
    desktop.time.advance(0.1);
    release({stepped});
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
    subActions.requests.at(std::stoul(words[0]) - 1)(commandsFrom({words.begin() + 1, words.end()}));
  }
  static std::vector<PieSubAction> commandsFrom(const Words& titles) {
    std::vector<PieSubAction> commands;
    for (const std::string& title : titles) commands.push_back({title, "", {}, {"File", title}, {}});
    return commands;
  }
  static std::string nextStep(const WelcomeContents& welcome) {
    EXPECT_EQ(welcome.isDone, welcome.steps[0].isDone && welcome.steps[1].isDone);
    return welcome.steps[0].isNext ? "open" : welcome.steps[1].isNext ? "choose" : "done";
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
  /// The number of rings pre-rendered since the last call, once no more are due.
  std::string prerendered() {
    desktop.time.advance(10);
    return std::to_string(std::exchange(desktop.overlay.prerendered, {}).size());
  }
  bool shownWasPrerendered() const {
    return std::ranges::count(desktop.overlay.prerendered, desktop.overlay.keyPanel()->picture) > 0;
  }
  std::string fingers() {
    Words words;
    for (const auto count : trackpad().fingerCounts()) words.push_back(std::to_string(count));
    return joined(words);
  }
  TrackpadGestureMonitor& trackpad() { return program.delegate().triggers().trackpadGestureMonitor(); }

  void addActions();
  void addObservations();

  std::map<std::string, Uuid> ids;
  bool isLaunched = false;
};

void ProgramStory::addActions() {
  using W = const Words&;
  actions = {
      {"menus", [this](W texts) { saveMenus(texts); }},
      {"press", keys(&FakeKeyboard::press)},
      {"release", keys(&FakeKeyboard::release)},
      {"latch", keys(&FakeKeyboard::latch)},
      {"repeat", keys(&FakeKeyboard::repeat)},
      {"lose", keys(&FakeKeyboard::releaseUnseen)},
      {"strike", [this](W w) { keys (&FakeKeyboard::press)(w), keys (&FakeKeyboard::release)(w); }},
      {"step", [this](W keys) { step(key(keys[0])); }},
      {"wait", [this](W w) { desktop.time.advance(std::stod(w[0])); }},
      {"point", [this](W w) { pointAtSector(std::stoul(w[0]) - 1); }},
      {"centre", [this](W) { desktop.overlay.moveTo(kPointer); }},
      {"click", [this](W) { desktop.overlay.click(); }},
      {"deafen", [this](W) { trackpad().stop(); }},
      {"tap", [this](W w) { trackpad().onTap(std::stol(w[0])); }},
      {"request", [this](W w) { program.delegate().trigger(ids.at(w[0]).string()); }},
      {"front", [this](W w) { bringForward(w[0]); }},
      {"quit", [this](W w) { desktop.workspace.quit(application(w[0]).processIdentifier); }},
      {"agent", [this](W) { startAgent(); }},
      {"targetless", [this](W) { subActions.target.reset(); }},
      {"unidentified", [this](W) { subActions.target->bundleIdentifier.reset(); }},
      {"answer", [this](W w) { answer(w); }},
      {"known", [this](W w) { subActions.knownCommands = commandsFrom(w); }},
      {"newcomer", [this](W) { desktop.defaults.values.clear(); }},
      {"told-of-hidden-item",
       [this](W) { desktop.defaults.setBoolean(AppLaunchState::kHasShownHiddenStatusItem, true); }},
      {"permit", [this](W w) { permit(w); }},
      {"taken",
       [this](W) {
         desktop.keyboard.foreignOwners = {{49, kControlOption}};
       }},
      {"freed", [this](W) { desktop.keyboard.foreignOwners.clear(); }},
      {"tray", [this](W w) { desktop.statusBar.change(tray(w[0])); }},
      {"embedded", [this](W) { desktop.statusBar.visibility = StatusItemVisibility::visible; }},
      {"screens", [this](W) { desktop.screens.change({}); }},
      {"activate", [this](W) { desktop.shell.becomeActive(); }},
      {"finish", [this](W) { desktop.windows.closeOnboarding(); }},
      {"wayland", [this](W) { desktop.environment.variables["XDG_SESSION_TYPE"] = "wayland"; }},
      {"open-with-button", [this](W) { program.windowContents().welcome->openRing(); }},
      {"choose-hotkey", [this](W) { program.windowContents().welcome->chooseHotkey(); }},
      {"choose", [this](W w) { desktop.statusBar.choose(w[0] == "settings" ? 0 : 2); }},
      {"reopen", [this](W) { EXPECT_TRUE(program.delegate().applicationShouldHandleReopen(false)); }},
      {"icons", [this](W) { program.delegate().iconsChanged(); }},
      {"end", [this](W) { program.end(); }},
      {"lock", [this](W) { desktop.session.lock(); }},
      {"layout", [this](W) { desktop.keyboard.moveModifiers(); }},
      {"haptics", [this](W w) { useHaptics(w[0] == "on"); }},
      {"advance", [this](W) { program.pieMenuWindow().advanceRunningAppsSelection(); }},
  };
}

void ProgramStory::addObservations() {
  const auto count = [](auto number) { return std::to_string(number); };
  observations = {
      {"menu", [this] { return isMenuUp() ? shownMenu() : "none"; }},
      {"highlight", [this] { return highlightedItem().empty() ? "none" : highlightedItem(); }},
      {"front", [this] { return applicationName(desktop.workspace.frontmostApplication()->processIdentifier); }},
      {"restored", [this] { return applicationNames(desktop.workspace.activationRequests); }},
      {"panels", [this, count] { return count(desktop.overlay.panels.size()); }},
      {"previews", [this] { return previews(); }},
      {"keystrokes", [this, count] { return count(desktop.keyEvents.posted.size() / 2); }},
      {"clipboard", [this] { return desktop.pasteboard.string.value_or("none"); }},
      {"opened", [this] { return opened(); }},
      {"fingers", [this] { return fingers(); }},
      {"requests", [this, count] { return count(subActions.requests.size()); }},
      {"performed", [this] { return performed(); }},
      {"prefetched", [this] { return applicationNames(subActions.prefetched); }},
      {"reminders", [this, count] { return count(desktop.windows.reminders); }},
      {"welcome", [this] { return nextStep(program.windowContents().welcome->contents()); }},
      {"welcome-buttons", [this] { return yesOrNo(!program.windowContents().welcome->contents().openRing.empty()); }},
      {"onboarding", [this] { return desktop.windows.isOnboardingUp ? "up" : "none"; }},
      {"settings", [this, count] { return count(desktop.windows.settingsShown); }},
      {"settings-windows", [this, count] { return count(desktop.windows.settingsWindowsMade); }},
      {"introduced", [this] { return yesOrNo(desktop.defaults.boolean(AppLaunchState::kHasSeenPermissionIntro)); }},
      {"told-of-hidden-item",
       [this] { return yesOrNo(desktop.defaults.boolean(AppLaunchState::kHasShownHiddenStatusItem)); }},
      {"wants-trackpads", [this] { return yesOrNo(wantsTrackpads); }},
      {"listen-requests", [this, count] { return count(desktop.permissions.listenRequests); }},
      {"activations", [this, count] { return count(desktop.shell.activations); }},
      {"terminations", [this, count] { return count(desktop.shell.terminations); }},
      {"outlives-windows", [this] { return desktop.shell.shouldTerminateAfterLastWindowClosed() ? "no" : "yes"; }},
      {"registered", [this] { return yesOrNo(desktop.keyboard.isRegistered(49, kControlOption)); }},
      {"tray-problem", [this] { return program.statusItemProblem().value_or("none"); }},
      {"log-lines", [this, count] { return count(desktop.log.lines.size()); }},
      {"ticks", [this, count] { return count(std::exchange(desktop.haptics.performed, {}).size()); }},
      {"preview-hint", [this] { return desktop.windows.previewHint; }},
      {"prerendered", [this] { return prerendered(); }},
      {"prerendered-now", [this, count] { return count(desktop.overlay.prerendered.size()); }},
      {"shown-was-prerendered", [this] { return yesOrNo(shownWasPrerendered()); }},
  };
}

TEST(ProgramStories, PlayAsWritten) {
  for (const char* file : {"triggers", "choices", "app_commands", "document_changes", "launch", "ring_prerenderer"}) {
    playStories<ProgramStory>(file);
  }
}

}  // namespace
}  // namespace rondora
