#include "app/program.h"

#include <gmock/gmock.h>

#include "permissions/app_relauncher.h"
#include "pie/picture/ring_picture.h"
#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::Contains;
using testing::ElementsAre;

using RunningProgramTest = ProgramTest;

TEST_F(RunningProgramTest, StartsInOrder) {
  bool wasMade = false;
  desktop.statusBar.whenMade = [&] {
    wasMade = true;
    EXPECT_EQ(desktop.defaults.values["NSInitialToolTipDelay"], FakeUserDefaults::Value(std::int64_t{500}));
    EXPECT_TRUE(desktop.defaults.boolean(AppLaunchState::kAutoOpenMigrationDone));
    EXPECT_THAT(program.activationHistory().bundleIdentifiers(), ElementsAre("org.example.editor"));
    EXPECT_EQ(desktop.shell.mainMenu.size(), 3U);
    EXPECT_EQ(desktop.shell.activationPolicy, ActivationPolicy::accessory);
    EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  };
  program.start();
  EXPECT_TRUE(wasMade);
  EXPECT_GT(desktop.keyboard.registrationCount(), 0U);
}

TEST_F(RunningProgramTest, DecodedIconsReachTheOpenRingAndTheNextOnes) {
  launchWith({menu("main", {49, kControlOption})});
  press({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  ASSERT_TRUE(isMenuUp());
  const auto decoding = program.decodeIcon({PictureRequest::Source::imageFile, 48, "picture a", {}, "1"}, [](auto&) {});
  desktop.time.advance(0.1);
  EXPECT_EQ(desktop.overlay.panels.back()->refreshCount, 1);
  release({Key::kSpaceKey, Key::kOptionKey, Key::kControlKey});
  desktop.overlay.prerendered.clear();
  desktop.time.advance(3);
  EXPECT_FALSE(desktop.overlay.prerendered.empty());
}

TEST_F(RunningProgramTest, ItemsWithoutTheirApplicationAreDimmedAndSayItsKind) {
  PieMenu main = menu("main", {49, kControlOption});
  main.items[0].title = "Safari";
  main.items[0].action = LaunchApp{"com.apple.Safari"};
  main.items[1].action = LaunchApp{"org.example.missing"};
  launchWith({main});
  const auto nextPicture = [&] {
    desktop.overlay.prerendered.clear();
    program.delegate().iconsChanged();
    desktop.time.advance(3);
    return desktop.overlay.prerendered.back();
  };
  const auto title = [](const Picture& picture, std::size_t item) {
    const DisplayList& shown = picture.layers[ring_layers::title(4)].states[item + 1];
    return std::get<TextCommand>(shown.back()).text;
  };
  const Picture without = nextPicture();
  EXPECT_EQ(title(without, 0), "Web browser");
  EXPECT_EQ(title(without, 1), "snippet");
  desktop.workspace.install("com.apple.Safari", "Firefox ESR");
  desktop.workspace.install("org.example.missing", "Found");
  const Picture with = nextPicture();
  EXPECT_EQ(title(with, 0), "Firefox ESR");
  for (std::size_t item = 0; item < 4; ++item) {
    const std::size_t layer = ring_layers::sector(item);
    EXPECT_EQ(with.layers[layer] == without.layers[layer], item > 1) << item;
    EXPECT_NE(without.layers[layer].states[0], without.layers[layer].states[1]) << "still shows the highlight";
  }
}

TEST_F(RunningProgramTest, KeepsAnExistingToolTipDelay) {
  desktop.defaults.setInteger("NSInitialToolTipDelay", 20);
  launch();
  EXPECT_EQ(desktop.defaults.values["NSInitialToolTipDelay"], FakeUserDefaults::Value(std::int64_t{20}));
}

TEST_F(RunningProgramTest, CallbacksThatOutliveTheProgramDoNothing) {
  desktop.defaults.values.clear();
  {
    Program shortLived(platform());
    shortLived.start();
    desktop.keyboard.pressAll({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  }
  desktop.time.advance(2);
  desktop.shell.becomeActive();
  desktop.shell.mainMenu.front().action();
  EXPECT_FALSE(desktop.overlay.holdsKeyboard());
  EXPECT_EQ(desktop.windows.onboardingWindowsMade, 0);
  EXPECT_EQ(desktop.windows.settingsShown, 0);
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_EQ(desktop.keyboard.monitorCount(), 0U);
}

TEST_F(RunningProgramTest, RunsCommandsOfTheFrontApplicationAndListsFailures) {
  PieMenu commands = appCommandsMenu({49, kControlOption});
  commands.appCommandsDefaultEntries.resize(2);
  commands.appCommandsDefaultEntries[0].kind = AppSubMenuEntry::Kind::quitApp;
  commands.appCommandsDefaultEntries[1].kind = AppSubMenuEntry::Kind::minimizeWindow;
  useMenus({commands});
  const auto window = desktop.accessibility.addWindow(editor.processIdentifier, "window", 1, false);
  window->settable = window->refusedActions = {"AXMinimized"};
  Platform own = platform();
  own.subActions = nullptr;
  Program real(own);
  real.start();
  EXPECT_TRUE(wantsApplicationMenus);
  desktop.time.advance(3);
  press({Key::kControlKey, Key::kOptionKey, Key::kSpaceKey});
  ASSERT_TRUE(isMenuUp());
  EXPECT_THAT(desktop.overlay.prerendered, Contains(desktop.overlay.keyPanel()->picture));
  press({kOneKey});
  EXPECT_FALSE(isMenuUp());
  EXPECT_THAT(desktop.accessibility.journal, ElementsAre("window: AXMinimized=1"));
  std::vector<std::string> statements;
  const auto watch = real.windowContents().watchFailures([&](const SessionFindings& findings) {
    for (const SessionFinding& finding : findings) statements.push_back(finding.statement);
  });
  EXPECT_THAT(statements, Contains("Item “Minimize window”: the window of “Editor” did not change."));
}

TEST_F(RunningProgramTest, NewInstallStaysNewAfterTheIntroduction) {
  desktop.defaults.values.clear();
  AppLaunchState state(desktop.defaults, desktop.environment);
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_TRUE(desktop.defaults.boolean("pie.settingsAutoOpenAfterPermissionsMigrationDone"));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(true, false));
  state.markPermissionIntroSeen();
  state.applySettingsAutoOpenMigrationForExistingInstallsIfNeeded();
  EXPECT_FALSE(desktop.defaults.hasValue("pie.hasAutoOpenedSettingsAfterPermissions"));
  EXPECT_FALSE(state.shouldShowPermissionsOnboarding(false, false));
  EXPECT_TRUE(state.shouldShowPermissionsOnboarding(false, true)) << "accessibility is missing";
  for (const std::string value : {"", "11", "1"}) {
    desktop.environment.variables["RONDORA_FIRST_LAUNCH"] = value;
    EXPECT_EQ(state.shouldShowPermissionsOnboarding(true, true), value == "1") << value;
  }
}

TEST_F(RunningProgramTest, ChosenLanguageReachesDocumentMenusAndWindows) {
  launchWith({menu("main", {49, kControlOption})});
  WindowContents contents = program.windowContents();
  const WelcomeContents welcome = contents.welcome->contents();
  EXPECT_EQ(welcome.hotkey, "Ctrl + Alt + Space");
  EXPECT_NE(welcome.whereItLives.find(program.config().configURL().string()), std::string::npos);
  int changes = 0;
  const Subscription observer = contents.onTextsChanged([&] { ++changes; });

  contents.chooseLanguage(AppLanguage::german);
  EXPECT_EQ(contents.language(), AppLanguage::english) << "a choice is debounced like every edit";
  desktop.time.advance(0.22);
  EXPECT_EQ(changes, 1);
  EXPECT_THAT(languages, ElementsAre(AppLanguage::english, AppLanguage::german));
  const std::string settings(program.localization().text(StringKey::settings));
  const auto& entries = desktop.statusBar.items.back()->menu;
  EXPECT_NE(contents.welcome->contents().title, welcome.title);
  EXPECT_EQ(entries.at(0).title, settings);
  EXPECT_EQ(entries.at(2).title, program.localization().text(StringKey::quit));
  EXPECT_EQ(desktop.shell.mainMenu.front().title, settings);
}

TEST_F(RunningProgramTest, WindowsFollowTheFindingsTheyShow) {
  launchWith({menu("main", {49, kControlOption})});
  desktop.time.advance(1);
  const WindowContents contents = program.windowContents();
  std::vector<std::size_t> all;
  std::vector<std::size_t> failing;
  Subscription settings = contents.watchFindings([&](const auto& findings) { all.push_back(findings.size()); });
  Subscription onboarding = contents.watchFailures([&](const auto& findings) { failing.push_back(findings.size()); });
  desktop.permissions.trusted = false;
  desktop.time.advance(3);
  EXPECT_THAT(all, ElementsAre(4, 4));
  EXPECT_THAT(failing, ElementsAre(0, 1));
  settings.reset();
  onboarding.reset();
  desktop.permissions.trusted = true;
  desktop.time.advance(3);
  EXPECT_THAT(all, ElementsAre(4, 4)) << "hidden windows read nothing";
}

TEST_F(RunningProgramTest, WelcomeAsksForThePermissionsOfAMac) {
  desktop.permissions.trusted = desktop.permissions.mayListen = false;
  Platform mac = platform();
  mac.desktop = DesktopKind::macOS;
  Program next(mac);
  next.start();
  const WindowContents contents = next.windowContents();
  SessionFindings missing;
  const Subscription watch = contents.watchFailures([&](const SessionFindings& failures) { missing = failures; });
  ASSERT_THAT(missing, testing::SizeIs(2));
  EXPECT_EQ(missing[0].statement, "Accessibility: missing");
  for (const SessionFinding& finding : missing) contents.press(finding.buttons.at(0));
  EXPECT_EQ(desktop.permissions.trustPrompts + desktop.permissions.listenRequests, 2);
}

TEST_F(RunningProgramTest, UnreadableDocumentIsAFindingUntilItIsRestored) {
  std::string& document = desktop.files.files[program.config().configURL()];
  const std::string readable = document;
  document.replace(document.find("menuRadius"), 10, "menuRadios");
  std::optional<Program> next;
  for (int start = 0; start < 2; ++start) {
    next.emplace(platform()).start();
    desktop.time.advance(2);
    EXPECT_EQ(desktop.windows.settingsShown, 1) << "they open at the start that could not read it";
  }
  const WindowContents contents = next->windowContents();
  SessionFindings findings;
  const Subscription watch = contents.watchFindings([&](const SessionFindings& all) { findings = all; });
  const SessionFinding finding = findings.at(0);
  EXPECT_THAT(finding.statement, testing::HasSubstr("menus[0].menuRadius: missing"));
  ASSERT_THAT(finding.buttons, testing::SizeIs(3));
  const auto press = [&](std::size_t button) {
    contents.press(finding.buttons[button]);
    desktop.time.advance(1);
  };
  press(0);
  EXPECT_EQ(desktop.workspace.openedUrls, std::vector{"file://" + finding.buttons[0].file});
  press(1);
  EXPECT_THAT(findings.at(0).remedy, testing::EndsWith("valid settings backup.\nmenus[0].menuRadius: missing"));
  desktop.files.files[finding.buttons[1].file] = readable;
  press(1);
  EXPECT_TRUE(findings.at(0).works) << findings[0].statement;
  EXPECT_EQ(next->config().current().menus, program.config().current().menus);
}

TEST_F(RunningProgramTest, FailedSaveIsAFindingUntilOneWorks) {
  launchWith({menu("main", {49, kControlOption})});
  const WindowContents contents = program.windowContents();
  SessionFindings findings;
  const Subscription watch = contents.watchFailures([&](const SessionFindings& failures) { findings = failures; });
  SessionFindings unsaved;  // what every page of the settings shows
  const Subscription everywhere = contents.watchUnsaved([&](const SessionFindings& all) { unsaved = all; });
  desktop.files.failures["replace"] = "disk full";
  useMenus({menu("edited", {49, kControlOption})});
  desktop.time.advance(1);
  ASSERT_THAT(findings, testing::SizeIs(1));
  EXPECT_EQ(findings[0].statement, "Rondora cannot save its settings: disk full");
  EXPECT_EQ(unsaved, findings);
  contents.press(findings[0].buttons.at(0));
  desktop.time.advance(1);
  EXPECT_THAT(findings, testing::SizeIs(1)) << "the disk is still full";
  desktop.files.failures.clear();
  contents.press(findings[0].buttons.at(0));
  desktop.time.advance(1);
  EXPECT_THAT(findings, testing::IsEmpty());
  EXPECT_THAT(unsaved, testing::IsEmpty());
  EXPECT_THAT(desktop.files.files[program.config().configURL()], testing::HasSubstr("edited"));
}

TEST_F(RunningProgramTest, FailedActionIsAFindingUntilItWorks) {
  PieMenu main = menu("main", {kKKey, 0});
  main.items[0].title = "Music";
  main.items[0].action = LaunchApp{"org.example.player"};
  launchWith({main});
  SessionFindings findings;
  const Subscription watch = program.windowContents().watchFindings([&](const auto& all) { findings = all; });
  const auto choose = [&] {
    press({kKKey});
    pointAtSector(0);
    release({kKKey});
    desktop.overlay.moveTo(kPointer);
    desktop.time.advance(1);
  };
  choose();
  choose();
  const FakeLog::Line line{LogLevel::error,
                           "action failed: item \"Music\" of menu \"main\": not installed: org.example.player"};
  EXPECT_THAT(desktop.log.lines, ElementsAre(line, line));
  EXPECT_EQ(findings.at(0).statement, "Item “Music”: “org.example.player” is not installed here.");
  EXPECT_TRUE(findings.at(1).works) << "one finding for one action";
  desktop.workspace.install("org.example.player", "Player");
  choose();
  EXPECT_TRUE(findings.at(0).works) << findings[0].statement;
}

TEST_F(RunningProgramTest, EndSavesEditsReleasesKeysAndLeavesTheSession) {
  PieMenu tapped = menu("tapped", {49, kControlOption});
  tapped.trackpadFingerCount = 3;
  launchWith({tapped});
  EXPECT_EQ(channel.served.trigger(tapped.id.string()), TriggerReply::opens);
  instance.claim();
  program.edits().edit([](PieConfiguration& document) { document.menus[0].name = "edited"; });
  program.end();
  EXPECT_EQ(program.config().current().menus[0].name, "edited");
  EXPECT_EQ(desktop.keyboard.registrationCount(), 0U);
  EXPECT_TRUE(program.delegate().triggers().trackpadGestureMonitor().fingerCounts().empty());
  EXPECT_TRUE(desktop.keyboard.taps.switchedOff.empty());
  EXPECT_THAT(ending, ElementsAre("clipboard"));
  EXPECT_FALSE(channel.isHeld);
}

TEST_F(RunningProgramTest, DeliversAReleaseThatPrecedesTheMenu) {
  launchWith({menu("main", {kKKey, 0})});
  desktop.keyboard.press(kKKey);
  program.config().save(program.config().current());
  desktop.keyboard.release(kKKey);
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.overlay.panels.size(), 1U);
  EXPECT_FALSE(isMenuUp());
}

TEST_F(RunningProgramTest, OtherProgramsListMenusAndNameThemByIdOrName) {
  PieMenu off = menu("off", {});
  off.kind = PieMenuKind::runningApps;
  off.runningAppsMenuEnabled = false;
  PieMenu empty = menu("empty", {});
  empty.items.clear();
  launchWith({menu("main", {49, kControlOption}), off, empty, menu("two", {}), menu("two", {})});
  EXPECT_EQ(desktop.statusBar.items.back()->toolTip, "Rondora\nmain: Ctrl + Alt + Space");
  std::vector<std::string> listed;
  for (const MenuListing& each : channel.served.listMenus()) {
    listed.push_back(each.name + '|' + each.hotkey + (each.isLive ? "|live" : ""));
  }
  EXPECT_THAT(listed, ElementsAre("main|Ctrl + Alt + Space|live", "off|", "empty|", "two|", "two|", "commands|"));
  const auto id = channel.served.listMenus().front().id;
  for (const auto& [name, reply] : {std::pair<std::string, TriggerReply>{id, TriggerReply::opens},
                                    {"main", TriggerReply::opens},
                                    {"Main", TriggerReply::unknown},
                                    {desktop.random.uuid().string(), TriggerReply::unknown},
                                    {"chord\nerror: forged", TriggerReply::unknown},
                                    {"two", TriggerReply::ambiguous},
                                    {"off", TriggerReply::switchedOff},
                                    {"empty", TriggerReply::empty}}) {
    EXPECT_EQ(channel.served.trigger(name), reply) << name;
  }
  EXPECT_THAT(desktop.log.lines, Contains(FakeLog::Line{LogLevel::error, "trigger skipped: the menu has no items"}));
}

TEST_F(RunningProgramTest, FloodOfRequestsCostsFewRings) {
  const PieMenu main = menu("main", {49, kControlOption});
  launchWith({main});
  for (int i = 0; i < 1000; ++i) {
    EXPECT_EQ(channel.served.trigger(main.id.string()), TriggerReply::opens);
    desktop.time.advance(0.001);
  }
  EXPECT_LE(desktop.overlay.panels.size(), 6U) << "opened, closed, … every 0.1 s";
}

TEST_F(RunningProgramTest, RelaunchesForATapThatAPermissionLeavesDeaf) {
  launchWith({menu("fn", {kFnKeyCode, 0}), menu("tab", {kTabKeyCode, carbon::kCommand})});
  for (const bool isDeaf : {false, true}) {
    desktop.keyboard.taps.isDeaf = isDeaf;
    for (const bool isTrusted : {false, true}) {
      desktop.permissions.trusted = isTrusted;
      desktop.time.advance(5);
    }
    EXPECT_EQ(static_cast<bool>(desktop.shell.openingInstance), isDeaf);
    EXPECT_EQ(desktop.keyboard.taps.switchedOff.empty(), isDeaf) << "the new instance is to take the switcher's keys";
  }
}

TEST_F(RunningProgramTest, RelaunchEndsThisInstanceOnceTheNewOneIsOpen) {
  AppRelauncher(desktop.shell, desktop.time).relaunch();
  EXPECT_EQ(desktop.shell.openedWith, (OpenConfiguration{.createsNewApplicationInstance = true, .activates = false}));
  desktop.time.advance(1);
  EXPECT_EQ(desktop.shell.terminations, 0);
  desktop.shell.openingInstance();
  EXPECT_EQ(desktop.shell.terminations, 0) << "only the main queue ends the program";
  desktop.time.runUntilIdle();
  EXPECT_EQ(desktop.shell.terminations, 1);
}

}  // namespace
}  // namespace rondora
