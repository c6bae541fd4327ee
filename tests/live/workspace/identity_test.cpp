#include <gmock/gmock.h>

#include <map>
#include <thread>

#include "desktop/key_logger.h"
#include "desktop/wait.h"
#include "live/workspace/workspace_test.h"
#include "platform/linux/x11/windows/x11_window_list.h"

namespace rondora::live {
namespace {

using IdentityTest = WorkspaceTest;

std::vector<std::string> idsOf(const std::vector<RunningApplication>& applications) {
  std::vector<std::string> ids;
  for (const auto& application : applications) {
    if (application.activationPolicy == ActivationPolicy::regular) {
      ids.push_back(application.bundleIdentifier.value_or("none"));
    }
  }
  return ids;
}

/// Identifies them by toolkit id, window instance, window class or executable.
TEST_F(IdentityTest, IdentifiesADozenApplications) {
  std::map<std::string, std::string> commands = {{"debian-xterm", "xterm"},
                                                 {"org.pwmt.zathura", "zathura"},
                                                 {"org.xfce.mousepad", "mousepad"},
                                                 {"rxvt-unicode", "urxvt"}};
  for (const char* alike :
       {"galculator", "gpicview", "l3afpad", "lxtask", "mtpaint", "pcmanfm", "st", "xarchiver", "xfce4-taskmanager"}) {
    commands[alike] = alike;
  }
  std::vector<std::unique_ptr<ChildProcess>> processes;
  std::vector<std::string> ids;
  for (const auto& [id, command] : commands) {
    processes.push_back(desktop().start({command}));
    EXPECT_TRUE(eventually([&, wanted = id] { return running(wanted).has_value(); })) << id;
    ids.push_back(id);
  }
  EXPECT_THAT(idsOf(workspace().runningApplications()), testing::UnorderedElementsAreArray(ids));
  EXPECT_EQ(running("debian-xterm")->processIdentifier, processes.front()->pid());
  EXPECT_EQ(running("org.xfce.mousepad")->localizedName, "Mousepad");
  EXPECT_EQ(running("com.apple.Notes"), running("org.xfce.mousepad"));
  EXPECT_EQ(running("com.apple.finder"), running("pcmanfm"));
  EXPECT_EQ(workspace().applicationName("com.apple.Notes"), "Mousepad");
  EXPECT_FALSE(workspace().urlForApplication("org.example.Nothing"));
}

TEST_F(IdentityTest, ProcessesWithWindowsAreApplicationsPanelsAreNot) {
  const auto nameless = startWithWindow({"xev", "-name", "nameless window"}, "nameless window");
  EXPECT_EQ(workspace().frontmostApplication()->bundleIdentifier, std::nullopt);
  EXPECT_EQ(workspace().frontmostApplication()->localizedName, "nameless window");
  const auto one = startTerminal("terminal one");
  const auto two = startTerminal("terminal two");
  const auto editor = startWithWindow({"mousepad"}, "Untitled 1");
  run({"mousepad", "--opening-mode", "window"});
  ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") != XCB_NONE; }));
  EXPECT_THAT(idsOf(workspace().runningApplications()),
              testing::UnorderedElementsAre("none", "debian-xterm", "debian-xterm", "org.xfce.mousepad"));
  ASSERT_TRUE(eventually([this] { return running("tint2").has_value(); }));
  EXPECT_EQ(running("tint2")->activationPolicy, ActivationPolicy::accessory);
}

/// A reparented window's own origin is not its position on the screen.
TEST_F(IdentityTest, WindowBoundsAreThoseOfTheFrame) {
  const auto terminal = startTerminal("framed");
  const x11::WindowOwners& owners = underTest_.owners;
  const auto entries = x11::X11WindowList(underTest_.connection, underTest_.windows, workspace(), owners).windows();
  const auto found = std::ranges::find(entries, windowTitled("framed"), &WindowListEntry::number);
  ASSERT_TRUE(found != entries.end() && found->bounds);
  std::vector<Rect> frames;
  for (const auto& [window, area, isViewable, isOverrideRedirect] : client_.topLevels()) {
    frames.push_back({{double(area.x), double(area.y)}, {double(area.width), double(area.height)}});
  }
  EXPECT_THAT(frames, testing::Contains(*found->bounds));
  EXPECT_EQ(found->ownerPID, terminal->pid());
}

TEST_F(IdentityTest, PicturesComeFromTheDesktopEntryAndFromTheWindow) {
  const x11::X11ApplicationIcons icons(installed_, underTest_.windows, workspace());
  EXPECT_EQ(icons.iconSource("org.xfce.mousepad")->themeName, "org.xfce.mousepad");
  EXPECT_EQ(icons.iconSource("com.apple.Notes")->themeName,
            icons.iconSource(installed_.resolve("com.apple.Notes"))->themeName);
  EXPECT_FALSE(icons.iconSource(kOwnIdentifier));
  EXPECT_FALSE(icons.windowIconSource(kOwnIdentifier));

  std::vector<std::uint32_t> icon(1100 + 2);
  icon[0] = 1100;  // too large to be used
  icon[1] = 1;
  icon.insert(icon.end(), {2, 1, 0xFF000000, 0x80FFFFFF, 3, 1, 1, 2, 3, 1, 1, 9});
  const KeyLogger window(desktop().display(), {.title = "ours", .icon = icon});
  ASSERT_TRUE(eventually([this] { return running(kOwnIdentifier).has_value(); }));
  const auto source = icons.windowIconSource(kOwnIdentifier);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->pixelWidth, 3);
  EXPECT_EQ(source->pixelHeight, 1);
  EXPECT_THAT(source->pixels, testing::ElementsAre(1, 2, 3));

  // Openbox gives an icon to each window without one, except the root window.
  constexpr std::uint32_t kLie[] = {4000, 4000, 1, 2};
  const x11::X11Connection& connection = underTest_.connection;
  xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, connection.root(), connection.atom("_NET_WM_ICON"),
                      XCB_ATOM_CARDINAL, 32, std::size(kLie), kLie);
  EXPECT_FALSE(underTest_.windows.icon(connection.root()));
}

TEST_F(IdentityTest, WindowsMayVanishAtAnyTime) {
  std::atomic<bool> done = false;
  std::thread restless([this, &done] {
    for (int i = 0; i < 150; ++i) {
      const KeyLogger first(desktop().display(), "first");
      const KeyLogger second(desktop().display(), "second");
    }
    done = true;
  });
  RunningApplication lastSeen;
  while (!done) {
    EXPECT_TRUE(underTest_.handleEvents());
    for (const auto& application : workspace().runningApplications()) {
      workspace().activate(application);
      lastSeen = application;
    }
    workspace().frontmostApplication();
  }
  restless.join();
  EXPECT_TRUE(eventually([this] { return !running(kOwnIdentifier); }));
  lastSeen.bundleIdentifier = kOwnIdentifier;
  EXPECT_FALSE(workspace().activate(lastSeen));
}

}  // namespace
}  // namespace rondora::live
