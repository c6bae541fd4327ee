#include <gmock/gmock.h>

#include "unit/app/program.h"

namespace rondora {
namespace {

using testing::Contains;
using testing::IsEmpty;
using testing::SizeIs;

class RingWarmerTest : public ProgramTest {
 protected:
  RingWarmerTest() { launchWith({menu("first", {49, kControlOption}), runningAppsMenu({kKKey, 0})}); }

  const std::vector<Picture>& prepared() const { return desktop.overlay.warmedUp; }
  /// What was prepared since the last call, once nothing more is due.
  std::size_t preparedMeanwhile() {
    desktop.time.advance(10);
    return std::exchange(desktop.overlay.warmedUp, {}).size();
  }
};

TEST_F(RingWarmerTest, WhatTheMenusWillShowIsPreparedInAQuietMomentOneMenuATurn) {
  desktop.time.advance(0.99);
  EXPECT_THAT(prepared(), IsEmpty());
  desktop.time.advance(0.01);
  EXPECT_THAT(prepared(), IsEmpty()) << "the sectors of the last menu are not known before it opens";
  desktop.time.advance(0.02);
  EXPECT_THAT(prepared(), SizeIs(1));
  desktop.time.advance(0.02);
  EXPECT_THAT(prepared(), SizeIs(2));

  pressChord();
  EXPECT_THAT(prepared(), Contains(desktop.overlay.keyPanel()->picture));
  releaseChord();
  press({kKKey});
  EXPECT_THAT(prepared(), Contains(desktop.overlay.keyPanel()->picture));
  release({kKKey});
  EXPECT_EQ(preparedMeanwhile(), 2U);
}

TEST_F(RingWarmerTest, NobodyWaitsForItWhileAMenuIsOpen) {
  press({kKKey});
  EXPECT_EQ(preparedMeanwhile(), 0U);
  release({kKKey});
  EXPECT_EQ(preparedMeanwhile(), 2U);
}

TEST_F(RingWarmerTest, StartsOverWhenARingWouldDifferAndLosesNothingThatWasDue) {
  desktop.time.advance(1.02);
  ASSERT_THAT(prepared(), SizeIs(1));
  desktop.workspace.bringForward(browser.processIdentifier);
  EXPECT_EQ(preparedMeanwhile(), 3U);
  desktop.workspace.bringForward(editor.processIdentifier);
  EXPECT_EQ(preparedMeanwhile(), 1U) << "the ring of the running applications";
  program.delegate.iconsChanged();
  EXPECT_EQ(preparedMeanwhile(), 2U);
}

TEST_F(RingWarmerTest, AMenuThatAKeyOpensIsPreparedHoweverManyOthersStandBeforeIt) {
  std::vector<PieMenu> menus;
  for (int i = 0; i < 40; ++i) menus.push_back(menu("other", {}));
  menus.push_back(menu("plain", {kKKey, 0}));
  menus.back().menuRadius += 10;
  useMenus(std::move(menus));
  desktop.time.advance(10);
  press({kKKey});
  EXPECT_THAT(prepared(), Contains(desktop.overlay.keyPanel()->picture));
}

TEST_F(RingWarmerTest, ChangesThatFollowEachOtherArePreparedOnceAndADisabledMenuNever) {
  preparedMeanwhile();
  PieMenu disabled = runningAppsMenu({kKKey, 0});
  disabled.runningAppsMenuEnabled = false;
  for (const char* name : {"a", "b", "c"}) {
    useMenus({menu(name, {49, kControlOption}), disabled});
    desktop.time.advance(0.5);
  }
  EXPECT_EQ(preparedMeanwhile(), 1U);

  useMenus({menu("d", {49, kControlOption})});
  program.delegate.applicationWillTerminate();
  EXPECT_EQ(preparedMeanwhile(), 0U);
}

}  // namespace
}  // namespace rondora
