#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class ChoiceTest : public ProgramTest {
 protected:
  ChoiceTest() { launchWith({menu("plain", {kKKey, 0})}); }
  /// Opens the menu and clicks a sector. The overlay is known to take nobody's activation away, so the test turns to
  /// the browser meanwhile, as a program that forces itself to the front would.
  void choose(std::size_t sector) {
    desktop.overlay.moveTo(kPointer);
    press({kKKey});
    desktop.workspace.bringForward(browser.processIdentifier);
    pointAtSector(sector);
    desktop.overlay.click();
    release({kKKey});
  }
  int keystrokes() const { return static_cast<int>(desktop.keyEvents.posted.size()) / 2; }
};

TEST_F(ChoiceTest, AKeystrokeWaitsForThePreviousApplication) {
  choose(2);
  EXPECT_FALSE(isMenuUp());
  EXPECT_EQ(frontApplication(), "org.example.editor");
  desktop.time.advance(0.149);
  desktop.workspace.bringForward(browser.processIdentifier);
  EXPECT_EQ(keystrokes(), 0);
  desktop.time.advance(0.001);
  EXPECT_EQ(keystrokes(), 0) << "the browser is in front";
  desktop.workspace.bringForward(editor.processIdentifier);
  desktop.time.advance(0.021);
  EXPECT_EQ(keystrokes(), 1);
  EXPECT_TRUE(desktop.log.contains(LogLevel::standard, "keystroke sent: key=7 flags=0 front=org.example.editor"));
}

TEST_F(ChoiceTest, ASnippetIsCopiedAfterThePreviousApplicationIsBackAndAnEmptyItemOnlyGoesBack) {
  choose(1);
  EXPECT_EQ(frontApplication(), "org.example.editor");
  EXPECT_EQ(desktop.pasteboard.string, std::nullopt);
  desktop.time.advance(0.15);
  EXPECT_EQ(desktop.pasteboard.string, "hello");

  choose(3);
  desktop.time.advance(1);
  EXPECT_EQ(frontApplication(), "org.example.editor");
  EXPECT_THAT(desktop.workspace.activationRequests, ElementsAre(editor.processIdentifier, editor.processIdentifier));
}

TEST_F(ChoiceTest, ApplicationsAddressesAndSystemActionsRunAtOnceAndDoNotGoBackFirst) {
  press({kKKey});
  pointAtSector(0);
  desktop.overlay.click();
  EXPECT_EQ(frontApplication(), "org.example.browser");
  release({kKKey});

  const std::string overview = "/System/Applications/Mission Control.app";
  desktop.workspace.systemPaths.insert(overview);
  PieMenu other = menu("other", {kKKey, 0});
  other.items[0].action = OpenURL{"https://example.org"};
  other.items[1].action = SystemShortcut{MacOSSystemActionKind::missionControl};
  useMenus({other});
  choose(0);
  choose(1);
  EXPECT_THAT(desktop.workspace.openedUrls, ElementsAre("https://example.org"));
  EXPECT_THAT(desktop.workspace.openedApplications, ElementsAre(overview));
  EXPECT_THAT(desktop.workspace.activationRequests, IsEmpty());
  EXPECT_EQ(frontApplication(), "org.example.browser");
}

TEST_F(ChoiceTest, WithoutAPreviousApplicationAKeystrokeGoesToWhatIsInFrontNow) {
  desktop.workspace.leaveAll();
  choose(2);
  EXPECT_EQ(keystrokes(), 1);
  EXPECT_THAT(desktop.workspace.activationRequests, IsEmpty());

  desktop.workspace.leaveAll();
  desktop.overlay.moveTo(kPointer);
  press({kKKey});
  pointAtSector(2);
  release({kKKey});
  EXPECT_EQ(keystrokes(), 2) << "nobody to wait for";
}

TEST_F(ChoiceTest, ASnippetIsPreviewedWhileItIsHovered) {
  press({kKKey});
  pointAtSector(1);
  EXPECT_THAT(desktop.windows.previews, ElementsAre("hello"));
  pointAtSector(0);
  EXPECT_THAT(desktop.windows.previews, ElementsAre("hello", ""));
  pointAtSector(1);
  press({Key::kEscapeKey});
  EXPECT_THAT(desktop.windows.previews, ElementsAre("hello", "", "hello", ""));
}

}  // namespace
}  // namespace rondora
