#include <gmock/gmock.h>
#include <signal.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <sstream>

#include "commands/window_ax.h"
#include "desktop/key_logger.h"
#include "desktop/private_desktop.h"
#include "desktop/wait.h"
#include "doubles/virtual_time.h"
#include "platform/linux/x11/overlay/x11_screens.h"
#include "platform/linux/x11/windows/window_activation.h"
#include "platform/linux/x11/windows/window_frame.h"
#include "platform/linux/x11/windows/x11_accessibility.h"

namespace rondora::live {

void PrintTo(const Area& area, std::ostream* out) {
  *out << area.x << ',' << area.y << ' ' << area.width << 'x' << area.height;
}

namespace {

const std::vector<Area> kMonitors = {{0, 0, 1000, 900}, {1000, 150, 1119, 700}};
/// A panel on the left of the first monitor and one at the bottom of the second.
const std::vector<Area> kWorkAreas = {{41, 0, 959, 900}, {1000, 150, 1119, 667}};
const std::vector<std::map<WindowTile, Area>> kTiles = {{{WindowTile::left, {41, 0, 479, 900}},
                                                         {WindowTile::right, {520, 0, 480, 900}},
                                                         {WindowTile::top, {41, 0, 959, 450}},
                                                         {WindowTile::bottom, {41, 450, 959, 450}},
                                                         {WindowTile::fill, {41, 0, 959, 900}}},
                                                        {{WindowTile::left, {1000, 150, 559, 667}},
                                                         {WindowTile::right, {1559, 150, 560, 667}},
                                                         {WindowTile::top, {1000, 150, 1119, 333}},
                                                         {WindowTile::bottom, {1000, 483, 1119, 334}},
                                                         {WindowTile::fill, {1000, 150, 1119, 667}}}};

WindowManager windowManager() {
  const char* name = std::getenv("RONDORA_TEST_WINDOW_MANAGER");
  const std::map<std::string, WindowManager> managers = {{"xfwm4", WindowManager::xfwm4},
                                                         {"metacity", WindowManager::metacity},
                                                         {"i3", WindowManager::i3},
                                                         {"none", WindowManager::none}};
  const auto found = managers.find(name ? name : "");
  return found == managers.end() ? WindowManager::openbox : found->second;
}

std::vector<Rect> inPoints(const std::vector<Area>& areas, double pixelsPerPoint) {
  std::vector<Rect> rects;
  for (const Area& area : areas) {
    rects.push_back({Point{double(area.x), double(area.y)} * (1 / pixelsPerPoint),
                     {area.width / pixelsPerPoint, area.height / pixelsPerPoint}});
  }
  return rects;
}

/// The numbers behind each label in the output of a tool.
std::vector<int> numbersAfter(const std::string& text, const std::string& label) {
  const auto at = text.find(label);
  if (at == std::string::npos) return {};
  std::istringstream line(text.substr(at + label.size(), text.find('\n', at) - at - label.size()));
  std::vector<int> numbers;
  for (int number = 0; line >> number; line.ignore(1)) numbers.push_back(number);
  return numbers;
}

class TilingTest : public testing::Test {
 protected:
  TilingTest() {
    setenv("DISPLAY", desktop_.display().c_str(), 1);
    bare_ = client_.capture({500, 450, 1, 1}).at(500, 450);
    if (monitors() != kMonitors) desktop_.setMonitors(kMonitors);
    if (windowManager() == WindowManager::none || windowManager() == WindowManager::i3) return;
    addPanel("left", {41, 0, 0, 0, 0, 899, 0, 0, 0, 0, 0, 0});
    addPanel("bottom", {0, 0, 0, 83, 0, 0, 0, 0, 0, 0, 1000, 2118});
    EXPECT_TRUE(waitUntil([this] { return workAreas() == inPoints(kWorkAreas, 1); }));
  }

  void addPanel(const std::string& title, const std::array<std::uint32_t, 12>& strut) {
    panels_.push_back(std::make_unique<KeyLogger>(
        desktop_.display(), WindowLook{.title = title, .width = 20, .height = 20, .type = "_NET_WM_WINDOW_TYPE_DOCK"}));
    xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, panels_.back()->window(),
                        client_.atom("_NET_WM_STRUT_PARTIAL"), XCB_ATOM_CARDINAL, 32, 12, strut.data());
    client_.sync();
  }

  std::vector<Rect> workAreas() {
    VirtualTime time;
    std::vector<Rect> areas;
    for (const Screen& screen : x11::X11Screens(server_, time).all()) areas.push_back(screen.visibleFrame);
    return areas;
  }

  AXElementRef target(pid_t process) {
    AXElementRef found;
    EXPECT_TRUE(waitUntil([&] { return (found = WindowAX(accessibility_).targetWindow(process)) != nullptr; }));
    return found;
  }

  /// The visible frame, from the server's own tools.
  Area frameOf(xcb_window_t window) {
    const std::string id = std::to_string(window);
    const std::string place = desktop_.outputOf({"xwininfo", "-id", id}).value_or("");
    const std::string borders =
        desktop_.outputOf({"xprop", "-id", id, "_NET_FRAME_EXTENTS", "_GTK_FRAME_EXTENTS"}).value_or("");
    const auto first = [&](const char* label) { return numbersAfter(place, label).at(0); };
    auto frame = numbersAfter(borders, "_NET_FRAME_EXTENTS(CARDINAL) = ");
    auto shadow = numbersAfter(borders, "_GTK_FRAME_EXTENTS(CARDINAL) = ");
    frame.resize(4);
    shadow.resize(4);
    for (std::size_t side = 0; side < 4; ++side) frame[side] -= shadow[side];
    return {first("Absolute upper-left X:") - frame[0], first("Absolute upper-left Y:") - frame[2],
            first("Width:") + frame[0] + frame[1], first("Height:") + frame[2] + frame[3]};
  }

  /// Once the window manager has no work left.
  Area settledFrameOf(xcb_window_t window) {
    EXPECT_TRUE(waitUntilSteady([&] { return desktop_.isWaiting(); }));
    return frameOf(window);
  }

  bool isFramed(xcb_window_t window, const Area& expected) {
    return waitUntil([&] { return frameOf(window) == expected; });
  }

  /// By the application's own request.
  void place(xcb_window_t window, const Area& area) {
    const std::uint32_t values[] = {std::uint32_t(area.x), std::uint32_t(area.y), std::uint32_t(area.width),
                                    std::uint32_t(area.height)};
    xcb_configure_window(client_.get(), window, 15, values);
    client_.sync();
    EXPECT_TRUE(waitUntil([&] {
      const Area frame = frameOf(window);
      return std::abs(frame.x - area.x) < 80 && std::abs(frame.width - area.width) < 80;
    })) << testing::PrintToString(frameOf(window));
  }

  bool tile(xcb_window_t window, WindowTile tile) {
    const auto windows = attributeOf<std::vector<AXElementRef>>(*accessibility_.application(getpid()), "AXWindows");
    const auto found =
        std::ranges::find(windows.value(), window, [](const auto& each) { return each->windowNumber(); });
    return found != windows->end() && WindowAX::tile(**found, tile, inPoints(kWorkAreas, 1));
  }

  /// As a pager does.
  void addState(xcb_window_t window, const char* state, xcb_atom_t second = XCB_ATOM_NONE) {
    server_.sendToRoot(window, server_.atom("_NET_WM_STATE"), {1, server_.atom(state), second, 2, 0});
    server_.flush();
  }
  std::string statesOf(xcb_window_t window) {
    return desktop_.outputOf({"xprop", "-id", std::to_string(window), "_NET_WM_STATE"}).value_or("");
  }

  bool hasShadow(xcb_window_t window) {
    return waitUntil([&] {
      const auto frame = x11::windowFrame(worker_.connected()->connection, window);
      return frame && frame->shadow.top > 0;
    });
  }

  /// As the window manager knows them. xfwm4 takes its monitors from a toolkit that knows none without an output, so
  /// that it would see only the first.
  static std::vector<Area> monitors() {
    return windowManager() == WindowManager::xfwm4 ? std::vector<Area>{{0, 0, 2119, 900}} : kMonitors;
  }
  static Area maximizedArea() {
    return windowManager() == WindowManager::xfwm4 ? Area{41, 0, 2078, 817} : kWorkAreas[0];
  }

  void expectTiles(AXElement& window);
  void expectTilesFromHeldStates(AXElement& window);

  PrivateDesktop desktop_{{windowManager(), Compositor::picom, Tray::none, "2119x900x24", monitors()}};
  XClient client_{desktop_.display()};
  x11::X11Connection server_{client_.get(), 0, 1};
  x11::WorkerConnection worker_{1};
  x11::WindowOwners owners_;
  x11::X11Accessibility accessibility_{worker_, owners_};
  std::vector<std::unique_ptr<KeyLogger>> panels_;
  /// The colour of the desktop without windows.
  std::uint32_t bare_ = 0;
};

class WithoutTilingTest : public TilingTest {};

void TilingTest::expectTiles(AXElement& window) {
  const auto areas = inPoints(kWorkAreas, 1);
  for (std::size_t monitor = 0; monitor < kMonitors.size(); ++monitor) {
    const Area& work = kWorkAreas[monitor];
    place(window.windowNumber(), {work.x + 100, work.y + 100, 600, 400});
    const Area old = frameOf(window.windowNumber());
    EXPECT_TRUE(WindowAX::tile(window, WindowTile::center, areas));
    const Area centre{int(std::lround(work.x + work.width / 2.0 - old.width / 2.0)),
                      int(std::lround(work.y + work.height / 2.0 - old.height / 2.0)), old.width, old.height};
    EXPECT_TRUE(isFramed(window.windowNumber(), centre)) << testing::PrintToString(frameOf(window.windowNumber()));
    for (const auto& [tile, expected] : kTiles[monitor]) {
      EXPECT_TRUE(WindowAX::tile(window, tile, areas)) << int(tile);
      EXPECT_TRUE(isFramed(window.windowNumber(), expected))
          << "tile " << int(tile) << " expected " << testing::PrintToString(expected) << " is "
          << testing::PrintToString(frameOf(window.windowNumber()));
    }
  }
}

void TilingTest::expectTilesFromHeldStates(AXElement& window) {
  const xcb_window_t number = window.windowNumber();
  for (const bool isFullScreen : {false, true}) {
    place(number, {141, 100, 600, 400});
    EXPECT_EQ(WindowAX::fullScreenState(window), FullScreenState::off);
    if (isFullScreen) {
      EXPECT_TRUE(WindowAX::toggleFullScreen(window));
      EXPECT_EQ(WindowAX::fullScreenState(window), FullScreenState::on);
    } else {
      addState(number, "_NET_WM_STATE_MAXIMIZED_VERT", server_.atom("_NET_WM_STATE_MAXIMIZED_HORZ"));
    }
    const Area held = isFullScreen ? monitors()[0] : maximizedArea();
    EXPECT_TRUE(isFramed(number, held)) << testing::PrintToString(frameOf(number));
    const auto& tiles = kTiles[held.x + held.width / 2 < 1000 ? 0 : 1];
    EXPECT_TRUE(WindowAX::tile(window, WindowTile::right, inPoints(kWorkAreas, 1)));
    EXPECT_TRUE(isFramed(number, tiles.at(WindowTile::right))) << testing::PrintToString(frameOf(number));
  }
}

TEST_F(TilingTest, PlainWindowsTileToThePixel) {
  const KeyLogger first(desktop_.display(), "first");
  expectTiles(*target(getpid()));
  const KeyLogger second(desktop_.display(), "second");
  EXPECT_TRUE(waitUntil([&] { return client_.activeWindow() == second.window(); }));
  for (const auto* window : {&first, &second}) place(window->window(), {300, 200, 300, 200});
  const auto bareSpots = [this](const Area& line) {
    const Capture picture = client_.capture(line);
    return std::ranges::count(picture.pixels, bare_, [](std::uint32_t pixel) { return pixel & 0xFFFFFFU; });
  };
  EXPECT_TRUE(waitUntil([&] { return bareSpots({41, 450, 959, 1}) > 0; }));
  for (const auto& [one, other, line] : {std::tuple{WindowTile::left, WindowTile::right, Area{41, 450, 959, 1}},
                                         {WindowTile::top, WindowTile::bottom, Area{500, 0, 1, 900}}}) {
    EXPECT_TRUE(tile(first.window(), one));
    EXPECT_TRUE(tile(second.window(), other));
    EXPECT_TRUE(waitUntil([&] { return bareSpots(line) == 0; })) << "once the compositor has painted";
  }
}

TEST_F(TilingTest, WindowsThatDrawTheirShadowTileToThePixel) {
  const auto editor = desktop_.start({"env", "GTK_CSD=1", "mousepad"});
  const AXElementRef window = target(editor->pid());
  EXPECT_TRUE(windowManager() == WindowManager::openbox || hasShadow(window->windowNumber()));
  expectTiles(*window);
  expectTilesFromHeldStates(*window);
}

TEST_F(TilingTest, MaximizedAndFullScreenWindowsTileToThePixel) {
  const KeyLogger plain(desktop_.display(), "plain");
  expectTilesFromHeldStates(*target(getpid()));
}

TEST_F(TilingTest, ShadedWindowsAreOpenUntilTheyAreMinimized) {
  const KeyLogger plain(desktop_.display(), "plain");
  const AXElementRef window = target(getpid());
  place(plain.window(), {141, 100, 600, 400});
  for (const bool tiles : {true, false}) {
    addState(plain.window(), "_NET_WM_STATE_SHADED");
    EXPECT_TRUE(waitUntil([&] { return statesOf(plain.window()).find("SHADED") != std::string::npos; }));
    EXPECT_TRUE(WindowAX::isStandardWindow(*window));
    if (!tiles) break;
    EXPECT_TRUE(WindowAX::tile(*window, WindowTile::right, inPoints(kWorkAreas, 1)));
    EXPECT_TRUE(isFramed(plain.window(), kTiles[0].at(WindowTile::right)));
    EXPECT_EQ(statesOf(plain.window()).find("SHADED"), std::string::npos);
  }
  EXPECT_TRUE(window->setAttribute("AXMinimized", true));
  EXPECT_FALSE(WindowAX::isStandardWindow(*window));
  EXPECT_TRUE(waitUntil([&] { return client_.activeWindow() != plain.window(); }));
}

/// An edge that falls on half a pixel is the same for the windows on both sides.
TEST_F(TilingTest, HalvesMeetAtFractionalScales) {
  const KeyLogger plain(desktop_.display(), "plain");
  x11::WorkerConnection worker(1.5);
  x11::X11Accessibility accessibility(worker, owners_);
  place(plain.window(), {141, 100, 400, 300});
  const AXElementRef window = WindowAX(accessibility).targetWindow(getpid());
  ASSERT_TRUE(window);
  std::map<WindowTile, Area> frames;
  for (const auto tile : {WindowTile::left, WindowTile::right, WindowTile::top, WindowTile::bottom}) {
    EXPECT_TRUE(WindowAX::tile(*window, tile, inPoints(kWorkAreas, 1.5)));
    frames[tile] = settledFrameOf(plain.window());
  }
  EXPECT_EQ(frames[WindowTile::left].x + frames[WindowTile::left].width, frames[WindowTile::right].x);
  EXPECT_EQ(frames[WindowTile::right].x + frames[WindowTile::right].width, 1000);
  EXPECT_EQ(frames[WindowTile::top].y + frames[WindowTile::top].height, frames[WindowTile::bottom].y);
  EXPECT_EQ(frames[WindowTile::bottom].y + frames[WindowTile::bottom].height, 900);
}

/// The window manager resizes a terminal by whole characters, also while its process stands still.
TEST_F(TilingTest, TerminalEndsAsNearAsItsIncrementsAllow) {
  const auto terminal = desktop_.start({"xterm", "-geometry", "60x20+100+100", "-e", "cat"});
  const AXElementRef window = target(terminal->pid());
  for (const bool isStopped : {false, true}) {
    if (isStopped) kill(terminal->pid(), SIGSTOP);
    for (const auto& [tile, wanted] : kTiles[0]) {
      EXPECT_TRUE(WindowAX::tile(*window, tile, inPoints(kWorkAreas, 1)));
      EXPECT_TRUE(WindowAX::tile(*window, tile, inPoints(kWorkAreas, 1))) << "there already";
      const Area frame = settledFrameOf(window->windowNumber());
      EXPECT_EQ(frame, (Area{wanted.x, wanted.y, frame.width, frame.height}));
      EXPECT_THAT(wanted.width - frame.width, testing::AllOf(testing::Ge(0), testing::Lt(6)));
      EXPECT_THAT(wanted.height - frame.height, testing::AllOf(testing::Ge(0), testing::Lt(13)));
    }
  }
}

TEST_F(TilingTest, TargetIsTheOpenMainWindow) {
  const KeyLogger older(desktop_.display(), "older");
  EXPECT_EQ(target(getpid())->windowNumber(), older.window());
  const KeyLogger newer(desktop_.display(), "newer");
  EXPECT_TRUE(waitUntil([&] { return client_.activeWindow() == newer.window(); }));
  const KeyLogger dialog(desktop_.display(), WindowLook{.title = "dialog", .type = "_NET_WM_WINDOW_TYPE_DIALOG"});
  const xcb_window_t parent = newer.window();
  xcb_change_property(client_.get(), XCB_PROP_MODE_REPLACE, dialog.window(), XCB_ATOM_WM_TRANSIENT_FOR, XCB_ATOM_WINDOW,
                      32, 1, &parent);
  client_.requestActivation(dialog.window());
  EXPECT_TRUE(waitUntil([&] { return client_.activeWindow() == dialog.window(); }));
  owners_.noteActivation(newer.window());
  const AXElementRef window = target(getpid());
  EXPECT_EQ(window->windowNumber(), newer.window());
  EXPECT_TRUE(window->isSettable("AXMinimized"));
  EXPECT_TRUE(window->setAttribute("AXMinimized", true));
  EXPECT_FALSE(WindowAX::isStandardWindow(*window));
  EXPECT_EQ(target(getpid())->windowNumber(), older.window());
}

/// Of the tiling window manager only; it does let windows fill the screen.
TEST_F(WithoutTilingTest, WindowsThatTheManagerPlacesAreTold) {
  if (windowManager() != WindowManager::i3) GTEST_SKIP();
  const KeyLogger tiled(desktop_.display(), "tiled");
  const AXElementRef window = target(getpid());
  const Area before = settledFrameOf(tiled.window());
  EXPECT_FALSE(WindowAX::canMoveAndResize(*window));
  EXPECT_FALSE(WindowAX::tile(*window, WindowTile::left, inPoints(kWorkAreas, 1)));
  EXPECT_FALSE(window->setAttribute("AXMinimized", true));
  EXPECT_FALSE(x11::iconifyWindows(server_, {{tiled.window()}}));
  EXPECT_EQ(frameOf(tiled.window()), before);
  EXPECT_TRUE(WindowAX::toggleFullScreen(*window));
  EXPECT_EQ(WindowAX::fullScreenState(*window), FullScreenState::on);
  EXPECT_TRUE(waitUntil([&] { return std::ranges::count(kMonitors, frameOf(tiled.window())) == 1; }));
  EXPECT_TRUE(WindowAX::toggleFullScreen(*window));
  EXPECT_TRUE(isFramed(tiled.window(), before)) << testing::PrintToString(frameOf(tiled.window()));
}

TEST_F(WithoutTilingTest, WindowsCanBeClosedWithoutAManager) {
  const auto terminal = desktop_.start({"xterm", "-e", "cat"});
  ASSERT_TRUE(terminal->waitForChild("cat"));
  const AXElementRef window = target(terminal->pid());
  if (windowManager() == WindowManager::none) {
    EXPECT_FALSE(WindowAX::canMoveAndResize(*window));
    EXPECT_EQ(WindowAX::fullScreenState(*window), FullScreenState::unsupported);
  }
  const auto button = attributeOf<AXElementRef>(*window, "AXCloseButton");
  ASSERT_TRUE(button);
  EXPECT_TRUE((*button)->perform("AXPress"));
  EXPECT_TRUE(waitUntil([&] { return !terminal->isRunning(); }));
  EXPECT_FALSE((*button)->perform("AXPress"));
}

}  // namespace
}  // namespace rondora::live
