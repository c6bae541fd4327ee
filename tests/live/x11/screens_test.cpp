#include "platform/linux/x11/overlay/x11_screens.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

using x11::Strut;
using x11::visibleFrame;

constexpr PixelRect kRoot{0, 0, 3000, 1000};
constexpr PixelRect kLeftMonitor{0, 0, 1000, 1000};
constexpr PixelRect kRightMonitor{1000, 200, 2000, 800};

Strut strut(std::vector<std::uint32_t> values) { return Strut::fromProperty(values); }

PixelRect withoutStruts(const PixelRect& monitor, std::vector<Strut> struts) {
  return visibleFrame(monitor, kRoot, {{}, std::move(struts), {}});
}

TEST(MonitorLayoutTest, StrutCountsOnTheMonitorsThatItCrosses) {
  const std::vector<Strut> struts = {
      strut({0, 0, 30, 0, 0, 0, 0, 0, 0, 999, 0, 0}),      // along the top of the left monitor
      strut({0, 50, 0, 0, 0, 0, 200, 999, 0, 0, 0, 0}),    // along the right edge
      strut({0, 0, 0, 40, 0, 0, 0, 0, 0, 0, 1000, 2999}),  // along the bottom of the right monitor
      strut({1100, 0, 0, 0, 200, 999, 0, 0, 0, 0, 0, 0}),  // left edge of the right monitor, measured from the root
  };
  EXPECT_EQ(withoutStruts(kLeftMonitor, struts), (PixelRect{0, 30, 1000, 970}));
  EXPECT_EQ(withoutStruts(kRightMonitor, struts), (PixelRect{1100, 200, 1850, 760}));
}

TEST(MonitorLayoutTest, OldAndHostileStrutsLeaveAScreen) {
  EXPECT_EQ(withoutStruts(kLeftMonitor, {strut({0, 0, 25, 0})}), (PixelRect{0, 25, 1000, 975}));
  const std::vector<Strut> hostile = {strut({600, 2600, 0, 0}), strut({0, 0, 0xFFFFFFFF, 0xFFFFFFFF}), strut({1})};
  EXPECT_EQ(withoutStruts(kLeftMonitor, hostile), kLeftMonitor);
}

TEST(MonitorLayoutTest, WorkAreasFillTheGaps) {
  const PixelRect ofDesktop{0, 32, 3000, 968};
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, {{}, {}, ofDesktop}), (PixelRect{0, 32, 1000, 968}));
  EXPECT_EQ(visibleFrame(kRightMonitor, kRoot, {{}, {}, ofDesktop}), kRightMonitor) << "begins below the panel";
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, {{}, {strut({0, 0, 0, 20})}, ofDesktop}), (PixelRect{0, 0, 1000, 980}))
      << "struts are per monitor";
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, {{}, {}, PixelRect{2000, 0, 1000, 1000}}), kLeftMonitor);

  const std::vector<PixelRect> ofMonitors =
      x11::rectsFromProperty(std::vector<std::uint32_t>{1000, 200, 2000, 700, 0, 10, 1000, 990, 7});
  EXPECT_EQ(visibleFrame(kRightMonitor, kRoot, {ofMonitors, {}, ofDesktop}), (PixelRect{1000, 200, 2000, 700}));
  EXPECT_EQ(visibleFrame(kLeftMonitor, kRoot, {ofMonitors, {}, ofDesktop}), (PixelRect{0, 10, 1000, 990}));
}

class ScreensTest : public X11Test {
 protected:
  x11::X11Screens screens_{connection_, time_};
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

TEST_F(ScreensTest, LeavesOutThePanelsStruts) {
  EXPECT_EQ(screens_.main()->visibleFrame, screens_.main()->frame);
  Bystander panel(server_.display());
  const xcb_window_t window = panel.cover({0, 0, 1280, 30});
  const auto set = [&](xcb_window_t on, const char* name, xcb_atom_t type, std::vector<std::uint32_t> values) {
    xcb_change_property(panel.get(), XCB_PROP_MODE_REPLACE, on, connection_.atom(name), type, 32,
                        static_cast<std::uint32_t>(values.size()), values.data());
    panel.sync();
  };
  const auto leaves = [&](const Rect& frame) {
    return eventually([&] { return screens_.main()->visibleFrame == frame; });
  };
  set(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {0, 0, 30, 0, 0, 0, 0, 0, 0, 1279, 0, 0});
  set(panel.root(), "_NET_CLIENT_LIST", XCB_ATOM_WINDOW, {window});
  EXPECT_TRUE(leaves({{0, 30}, {1280, 770}}));
  set(window, "_NET_WM_STRUT_PARTIAL", XCB_ATOM_CARDINAL, {0, 0, 0, 44, 0, 0, 0, 0, 0, 0, 0, 1279});
  EXPECT_TRUE(leaves({{0, 0}, {1280, 756}})) << "a panel that moved to the other edge";

  set(panel.root(), "_NET_WORKAREA", XCB_ATOM_CARDINAL, {0, 0, 1280, 800, 100, 0, 1180, 800});
  set(panel.root(), "_NET_CURRENT_DESKTOP", XCB_ATOM_CARDINAL, {1});
  EXPECT_TRUE(leaves({{100, 0}, {1180, 756}})) << "another desktop leaves less";
  set(panel.root(), "_GTK_WORKAREAS_D1", XCB_ATOM_CARDINAL, {120, 20, 900, 700});
  set(panel.root(), "_GTK_WORKAREAS_D0", XCB_ATOM_CARDINAL, {0, 0, 1280, 800});
  EXPECT_TRUE(leaves({{120, 20}, {900, 700}})) << "the window manager's own list of work areas wins";
}

}  // namespace
}  // namespace rondora::live
