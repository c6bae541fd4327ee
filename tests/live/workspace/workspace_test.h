#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "desktop/private_desktop.h"
#include "desktop/x_client.h"
#include "platform/linux/desktop/installed_applications.h"
#include "platform/linux/x11/windows/x11_application_icons.h"
#include "platform/linux/x11/windows/x11_client_windows.h"
#include "platform/linux/x11/windows/x11_workspace.h"
#include "platform/posix/posix_process_environment.h"

namespace rondora::live {

inline constexpr const char* kOwnIdentifier = "io.github.rondora.Rondora";

/// Our connection to an X server, and the objects under test on it.
class WorkspaceUnderTest {
 public:
  WorkspaceUnderTest(const std::string& display, ApplicationCatalogue& catalogue);

  /// Handles the events that came since. False when the server reported an error.
  bool handleEvents();

 private:
  int screen_ = 0;
  UniqueCPtr<xcb_connection_t, xcb_disconnect> handle_;

 public:
  x11::X11Connection connection;
  x11::X11ClientWindows windows;
  x11::WindowOwners owners;
  x11::X11Workspace workspace;
};

/// One desktop for all tests of a program: GLib looks up its folders and its bus only once. RONDORA_TEST_WINDOW_MANAGER
/// names the window manager.
class WorkspaceTest : public testing::Test {
 protected:
  WorkspaceTest();
  ~WorkspaceTest() override;
  static void SetUpTestSuite();

  const PrivateDesktop& desktop() const { return *desktop_; }
  x11::X11Workspace& workspace() { return underTest_.workspace; }
  /// The workspace, with the time of a user action that is later than everything the windows did on their own, such as
  /// taking the focus when they appear.
  x11::X11Workspace& workspaceForUser();

  /// Handles events until the condition holds; false when it takes too long.
  bool eventually(const std::function<bool()>& condition);
  /// Starts a program and waits for its window, which has that title and becomes the active one.
  std::unique_ptr<ChildProcess> startWithWindow(const std::vector<std::string>& command, const std::string& title);
  std::unique_ptr<ChildProcess> startTerminal(const std::string& title);
  xcb_window_t windowTitled(const std::string& title);
  std::optional<RunningApplication> running(const std::string& bundleIdentifier);
  bool isActive(xcb_window_t window) { return client_.activeWindow() == window; }
  bool becomesActive(xcb_window_t window);
  void run(const std::vector<std::string>& command);

 private:
  static std::unique_ptr<PrivateDesktop> desktop_;

  desktop::PosixProcessEnvironment environment_;

 protected:
  desktop::InstalledApplications installed_;
  WorkspaceUnderTest underTest_;
  XClient client_;
};

}  // namespace rondora::live
