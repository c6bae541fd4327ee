#include <gmock/gmock.h>

#include <map>
#include <thread>

#include "live/workspace/workspace_test.h"
#include "support/wait.h"

namespace rondora::live {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

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

/// A window of our own connection, as an application without desktop entry would make one.
class PlainWindow {
 public:
  explicit PlainWindow(const x11::XConnection& connection)
      : connection_(connection), window_(xcb_generate_id(connection.get())) {
    xcb_create_window(connection.get(), XCB_COPY_FROM_PARENT, window_, connection.root(), 0, 0, 50, 50, 0,
                      XCB_WINDOW_CLASS_INPUT_OUTPUT, XCB_COPY_FROM_PARENT, 0, nullptr);
  }
  ~PlainWindow() {
    xcb_destroy_window(connection_.get(), window_);
    connection_.flush();
  }
  PlainWindow(const PlainWindow&) = delete;
  PlainWindow& operator=(const PlainWindow&) = delete;

  xcb_window_t window() const { return window_; }
  void map() {
    xcb_map_window(connection_.get(), window_);
    connection_.flush();
  }
  void setIcon(const std::vector<std::uint32_t>& data) {
    xcb_change_property(connection_.get(), XCB_PROP_MODE_REPLACE, window_, connection_.atom("_NET_WM_ICON"),
                        XCB_ATOM_CARDINAL, 32, static_cast<std::uint32_t>(data.size()), data.data());
    connection_.flush();
  }

 private:
  const x11::XConnection& connection_;
  xcb_window_t window_;
};

/// By the id of their toolkit, the instance or the class of their windows, or their program file.
TEST_F(IdentityTest, KnowsADozenApplicationsByWhateverTheyTell) {
  const std::map<std::string, std::string> commands = {{"debian-xterm", "xterm"},
                                                       {"galculator", "galculator"},
                                                       {"gpicview", "gpicview"},
                                                       {"l3afpad", "l3afpad"},
                                                       {"lxtask", "lxtask"},
                                                       {"mtpaint", "mtpaint"},
                                                       {"org.pwmt.zathura", "zathura"},
                                                       {"org.xfce.mousepad", "mousepad"},
                                                       {"pcmanfm", "pcmanfm"},
                                                       {"rxvt-unicode", "urxvt"},
                                                       {"st", "st"},
                                                       {"xarchiver", "xarchiver"},
                                                       {"xfce4-taskmanager", "xfce4-taskmanager"}};
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
}

TEST_F(IdentityTest, WindowsOfOneProcessAreOneApplicationAndProcessesAreTwo) {
  const auto one = startTerminal("terminal one");
  const auto two = startTerminal("terminal two");
  const auto editor = startWithWindow({"mousepad"}, "Untitled 1");
  run({"mousepad", "--opening-mode", "window"});
  ASSERT_TRUE(eventually([this] { return windowTitled("Untitled 2") != XCB_NONE; }));
  EXPECT_THAT(idsOf(workspace().runningApplications()),
              UnorderedElementsAre("debian-xterm", "debian-xterm", "org.xfce.mousepad"));
}

TEST_F(IdentityTest, PanelsAreNoOrdinaryApplicationsAndAWindowWithoutNamesHasNoIdentifier) {
  const auto nameless = startWithWindow({"xev", "-name", "nameless window"}, "nameless window");
  EXPECT_THAT(idsOf(workspace().runningApplications()), ElementsAre("none"));
  EXPECT_EQ(workspace().frontmostApplication()->bundleIdentifier, std::nullopt);
  EXPECT_EQ(workspace().frontmostApplication()->localizedName, "nameless window");
  ASSERT_TRUE(eventually([this] { return running("tint2").has_value(); }));
  EXPECT_EQ(running("tint2")->activationPolicy, ActivationPolicy::accessory);
}

TEST_F(IdentityTest, PicturesComeFromTheDesktopEntryAndFromTheWindow) {
  const x11::X11ApplicationIcons icons(installed_, underTest_.windows, workspace());
  EXPECT_EQ(icons.iconSource("org.xfce.mousepad")->themeName, "org.xfce.mousepad");
  EXPECT_EQ(icons.iconSource("com.apple.Notes")->themeName,
            icons.iconSource(installed_.resolve("com.apple.Notes"))->themeName);
  EXPECT_FALSE(icons.iconSource(kOwnIdentifier));
  EXPECT_FALSE(icons.windowIconSource(kOwnIdentifier));

  PlainWindow window(underTest_.connection);
  std::vector<std::uint32_t> data{2, 1, 0xFF000000, 0x80FFFFFF, 3, 1, 1, 2, 3, 1, 1, 9};
  window.setIcon(data);
  window.map();
  ASSERT_TRUE(eventually([this] { return running(kOwnIdentifier).has_value(); }));
  const auto source = icons.windowIconSource(kOwnIdentifier);
  ASSERT_TRUE(source);
  EXPECT_EQ(source->pixelWidth, 3);
  EXPECT_EQ(source->pixelHeight, 1);
  EXPECT_THAT(source->pixels, ElementsAre(1, 2, 3));

  PlainWindow liar(underTest_.connection);
  liar.setIcon({4000, 4000, 1, 2});
  EXPECT_FALSE(underTest_.windows.icon(liar.window()));
}

TEST_F(IdentityTest, WindowsMayVanishWhileTheyAreLookedAt) {
  std::atomic<bool> done = false;
  std::thread restless([this, &done] {
    int screen = 0;
    const UniqueCPtr<xcb_connection_t, xcb_disconnect> handle(xcb_connect(desktop().display().c_str(), &screen));
    const x11::XConnection connection(handle.get(), screen, 1);
    for (int i = 0; i < 150; ++i) {
      PlainWindow first(connection);
      PlainWindow second(connection);
      first.map();
      second.map();
      xcb_get_input_focus_reply(handle.get(), xcb_get_input_focus(handle.get()), nullptr);
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
