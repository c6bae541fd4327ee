#include "app/session_report.h"

#include <gmock/gmock.h>

#include <algorithm>

#include "unit/app/program.h"

namespace rondora {
namespace {

class SessionReportTest : public ProgramTest {
 protected:
  using Hotkeys = std::vector<HotkeyConfig>;
  std::vector<SessionFinding> report(const SessionFacts& facts, const Hotkeys& hotkeys, bool isTapped = false) {
    std::vector<PieMenu> menus;
    for (const HotkeyConfig& hotkey : hotkeys) {
      menus.push_back(menu("Menu " + std::to_string(menus.size()), hotkey));
      if (isTapped) menus.back().trackpadFingerCount = 3;
    }
    useMenus(menus);
    return SessionReport(program.localization(), kPcModifierNames)
        .findings(facts, program.config().current(), program.delegate().hotkeyManager());
  }
  /// The beginnings of the findings, each after "+" if it works or "-" if it fails.
  static std::string outline(const std::vector<SessionFinding>& findings) {
    std::string text;
    for (const SessionFinding& finding : findings) {
      EXPECT_TRUE(finding.works || !finding.remedy.empty()) << finding.statement;
      text += (finding.works ? "+" : "-") + finding.statement.substr(0, 20);
    }
    return text;
  }
};

TEST_F(SessionReportTest, ListsWhatWorksAndRemediesForTheRest) {
  const HotkeyConfig controlSpace{49, carbon::kControl};
  const HotkeyConfig superTab{48, carbon::kCommand};
  desktop.keyboard.foreignOwners = {{49, carbon::kControl}};
  desktop.keyboard.taps.isAllowed = false;
  launch();
  SessionFacts wayland{.isWayland = true}, bare{.showsStatusItem = false, .canPressKeys = false};
  SessionFacts locked{.trackpads = TrackpadAccess::unreadable}, open{.trackpads = TrackpadAccess::readable};
  const std::string tray = "+Rondora’s icon is ", rest = tray + "+Rondora can type key";

  EXPECT_EQ(outline(report({}, {{49, 0}, superTab})), "+This is an X11 sessi+All menu hotkeys wor" + rest);
  EXPECT_EQ(outline(report({}, {{49, 0}, controlSpace, {63, 0}})),
            "+This is an X11 sessi-The hotkey of the me-Rondora cannot use t+Menu 0: Space" + rest);
  const auto many = report({}, Hotkeys(30, HotkeyConfig{63, 0}));
  EXPECT_EQ(many.size(), 14U);
  EXPECT_EQ(many[11].statement, "Further findings, not shown here: 20");
  EXPECT_EQ(outline(report(wayland, Hotkeys{{49, 0}})), "-This is a Wayland se+Menu 0: Space" + tray);
  EXPECT_EQ(outline(report(bare, {})), "+This is an X11 sessi-Your desktop shows n-The X server accepts");
  SessionFacts mac{.desktop = DesktopKind::macOS, .canPressKeys = false, .permissions = {{false, "Missing", "Allow"}}};
  EXPECT_EQ(outline(report(mac, {{63, 0}})), "-Rondora cannot use t+Rondora’s icon is -Missing");
  EXPECT_EQ(report(mac, {{63, 0}})[0].remedy, "Accessibility: missing");
  EXPECT_EQ(outline(report({}, {HotkeyConfig{}}, true)), "+This is an X11 sessi" + rest) << "no trackpad";
  EXPECT_EQ(outline({report(locked, {HotkeyConfig{}}, true).back(), report(open, {HotkeyConfig{}}, true).back()}),
            "-Rondora may not read+Taps of three, four ");
  const auto menus = report({.applicationsWithoutMenus = {"Kate", "GIMP"}}, {}).back();
  EXPECT_EQ(menus.statement, "Rondora cannot read the menus of these applications: Kate, GIMP");
}

TEST_F(SessionReportTest, NamesMenuAndKeysOfARefusedHotkey) {
  desktop.keyboard.foreignOwners = {{48, carbon::kCommand}};
  desktop.keyboard.taps.isAllowed = false;
  launch();
  const auto findings = report({}, {{49, 0}, {48, carbon::kCommand}});
  const auto refused = std::ranges::find(findings, false, &SessionFinding::works);
  ASSERT_NE(refused, findings.end());
  EXPECT_EQ(refused->statement, "The hotkey of the menu “Menu 1” is already taken by another program.");
  EXPECT_THAT(refused->remedy, testing::StartsWith("Free Super + Tab in the other program"));
  EXPECT_EQ(report({}, {{49, 0}, {49, 0}}).at(1).statement,
            "The menu “Menu 1” does not open by its hotkey: the menu “Menu 0” has the same one.");
  desktop.keyboard.option = "grp:ctrl_alt_toggle";
  const SessionFinding untypable = report({}, {{49, 0}}).at(1);
  EXPECT_EQ(untypable.statement, "Rondora cannot use the hotkey of the menu “Menu 0” here.");
  EXPECT_THAT(untypable.remedy, testing::HasSubstr("“grp:ctrl_alt_toggle”"));
  desktop.keyboard.option.reset();
  report({}, {{49, 0}, {48, carbon::kCommand}});
  const auto& menus = program.config().current().menus;
  EXPECT_EQ(firstMenuWithWorkingHotkey(menus, *program.delegate().hotkeyManager()), &menus.front());
}

}  // namespace
}  // namespace rondora
