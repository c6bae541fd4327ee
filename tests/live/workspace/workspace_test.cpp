#include "live/workspace/workspace_test.h"

#include <cstdlib>

#include "desktop/wait.h"

namespace rondora::live {
namespace {

std::unique_ptr<PrivateDesktop> makeDesktop() {
  const char* name = std::getenv("RONDORA_TEST_WINDOW_MANAGER");
  const bool wantsXfwm = name && std::string(name) == "xfwm4";
  auto desktop = std::make_unique<PrivateDesktop>(
      DesktopParts{wantsXfwm ? WindowManager::xfwm4 : WindowManager::openbox, Compositor::none, Tray::tint2});
  for (const auto& [variable, value] : desktop->environment()) setenv(variable.c_str(), value.c_str(), 1);
  return desktop;
}

}  // namespace

WorkspaceUnderTest::WorkspaceUnderTest(const std::string& display, ApplicationCatalogue& catalogue)
    : handle_(xcb_connect(display.c_str(), &screen_)),
      connection(handle_.get(), screen_, 1),
      windows(connection),
      workspace(connection, windows, catalogue, owners, kOwnIdentifier) {}

bool WorkspaceUnderTest::handleEvents() {
  bool isClean = xcb_connection_has_error(handle_.get()) == 0;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(handle_.get())}) {
    isClean = isClean && event->response_type != 0;
    connection.dispatch(*event);
  }
  return isClean;
}

std::unique_ptr<PrivateDesktop> WorkspaceTest::desktop_;

void WorkspaceTest::SetUpTestSuite() {
  if (!desktop_) desktop_ = makeDesktop();
}

WorkspaceTest::WorkspaceTest()
    : installed_(environment_, [](int, const auto&) { return Subscription(); }),
      underTest_(desktop_->display(), installed_),
      client_(desktop_->display()) {}

/// The next test starts without the windows of this one.
WorkspaceTest::~WorkspaceTest() {
  EXPECT_TRUE(eventually([this] {
    bool areGone = true;
    for (const auto& window : underTest_.windows.windows()) {
      if (!window.isOrdinary) continue;
      client_.requestClose(window.window);
      areGone = false;
    }
    return areGone;
  }));
}

bool WorkspaceTest::eventually(const std::function<bool()>& condition) {
  return waitUntil([&] {
    EXPECT_TRUE(underTest_.handleEvents());
    return condition();
  });
}

x11::X11Workspace& WorkspaceTest::workspaceForUser() {
  x11::X11Connection& connection = underTest_.connection;
  const xcb_timestamp_t before = connection.lastEventTime();
  EXPECT_TRUE(eventually([&] {
    const xcb_atom_t name = connection.atom("RONDORA_TEST_MOMENT");
    xcb_change_property(connection.get(), XCB_PROP_MODE_REPLACE, connection.root(), name, XCB_ATOM_CARDINAL, 32, 0,
                        nullptr);
    connection.flush();
    return connection.lastEventTime() > before;
  }));
  return workspace();
}

std::unique_ptr<ChildProcess> WorkspaceTest::startWithWindow(const std::vector<std::string>& command,
                                                             const std::string& title) {
  auto process = desktop_->start(command);
  EXPECT_TRUE(eventually([&] { return windowTitled(title) != XCB_NONE; })) << title;
  client_.requestActivation(windowTitled(title));  // a busy window manager may leave the focus where it is
  EXPECT_TRUE(becomesActive(windowTitled(title))) << title;
  return process;
}

std::unique_ptr<ChildProcess> WorkspaceTest::startTerminal(const std::string& title) {
  return startWithWindow({"xterm", "-T", title, "-e", "cat"}, title);
}

xcb_window_t WorkspaceTest::windowTitled(const std::string& title) {
  for (const xcb_window_t window : client_.clientList()) {
    if (client_.title(window).starts_with(title)) return window;
  }
  return XCB_NONE;
}

std::optional<RunningApplication> WorkspaceTest::running(const std::string& bundleIdentifier) {
  const auto applications = workspace().runningApplications(bundleIdentifier);
  if (applications.empty()) return std::nullopt;
  return applications.front();
}

bool WorkspaceTest::becomesActive(xcb_window_t window) {
  const bool became = eventually([&] { return isActive(window); });
  const auto& connection = underTest_.connection;  // the reply arrives after the events of the change
  connection.property32(connection.root(), connection.atom("_NET_ACTIVE_WINDOW"), XCB_ATOM_WINDOW);
  return became && underTest_.handleEvents();
}

void WorkspaceTest::run(const std::vector<std::string>& command) {
  EXPECT_TRUE(desktop_->outputOf(command)) << command.front();
}

}  // namespace rondora::live
