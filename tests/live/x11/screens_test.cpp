#include "platform/linux/x11/x11_screens.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using x11::PixelRect;
using x11::Strut;
using x11::visibleFrame;

constexpr PixelRect kRoot{0, 0, 3000, 1000};
constexpr PixelRect kLeftMonitor{0, 0, 1000, 1000};
constexpr PixelRect kRightMonitor{1000, 200, 2000, 800};

Strut strut(std::vector<std::uint32_t> values) { return Strut::fromProperty(values); }

TEST(MonitorLayoutTest, AStrutCountsOnTheMonitorsItLiesOn) {
  const std::vector<Strut> struts = {
      strut({0, 0, 30, 0, 0, 0, 0, 0, 0, 999, 0, 0}),      // along the top of the left monitor
      strut({0, 50, 0, 0, 0, 0, 200, 999, 0, 0, 0, 0}),    // along the right edge
      strut({0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 1000, 2999}),  // along the bottom of the right monitor
      strut({1100, 0, 0, 0, 200, 999, 0, 0, 0, 0, 0, 0}),  // left edge of the right monitor, measured from the root
  };
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, struts), (PixelRect{0, 30, 1000, 970}));
  EXPECT_EQ(visibleFrame(kRightMonitor, kRoot, struts), (PixelRect{1100, 200, 1850, 760}));
}

TEST(MonitorLayoutTest, OldAndHostileStrutsLeaveAScreen) {
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, std::vector{strut({0, 0, 25, 0})}), (PixelRect{0, 25, 1000, 975}));
  const std::vector<Strut> hostile = {strut({600, 2600, 0, 0}), strut({0, 0, 0xFFFFFFFF, 0xFFFFFFFF}), strut({1})};
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, hostile), kLeftMonitor);
}

class ScreensTest : public X11Test {
 protected:
  x11::X11Screens screens_{connection_, loop_};
};

TEST_F(ScreensTest, FollowsTheMonitors) {
  ASSERT_EQ(screens_.all().size(), 1U);
  EXPECT_EQ(screens_.main()->frame, (Rect{{0, 0}, {1280, 800}}));
  int changes = 0;
  const auto observer = screens_.onParametersChanged([&] { ++changes; });
  runTool({"xrandr", "--setmonitor", "*right", "640/200x800/200+640+0", "screen"});
  runTool({"xrandr", "--setmonitor", "left", "640/200x800/200+0+0", "none"});
  ASSERT_TRUE(eventually([&] { return screens_.all().size() == 2; }));
  EXPECT_GE(changes, 1);
  EXPECT_EQ(screens_.all().front().frame, (Rect{{0, 0}, {640, 800}})) << "the one with the origin comes first";
  EXPECT_EQ(screens_.main()->frame, (Rect{{640, 0}, {640, 800}}));
}

TEST_F(ScreensTest, LeavesOutWhatPanelsKeep) {
  EXPECT_EQ(screens_.main()->visibleFrame, screens_.main()->frame);
  Bystander panel(server_.display());
  const xcb_window_t window = panel.coverArea(0, 0, 1280, 30);
  const std::uint32_t values[12] = {0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0};
  xcb_change_property(panel.get(), XCB_PROP_MODE_REPLACE, window, connection_.atom("_NET_WM_STRUT_PARTIAL"),
                      XCB_ATOM_CARDINAL, 32, 12, values);
  xcb_change_property(panel.get(), XCB_PROP_MODE_REPLACE, panel.root(), connection_.atom("_NET_CLIENT_LIST"),
                      XCB_ATOM_WINDOW, 32, 1, &window);
  panel.sync();
  EXPECT_TRUE(eventually([&] { return screens_.main()->visibleFrame == Rect{{0, 30}, {1280, 770}}; }));
}

}  // namespace
}  // namespace rondora::live
