#pragma once

#include <gtest/gtest.h>

#include <memory>
#include <string>
#include <vector>

#include "commands/app_menu_command_reader.h"
#include "desktop/private_desktop.h"
#include "desktop/x_client.h"
#include "platform/linux/menus/menu_publishing.h"
#include "platform/linux/menus/published_menus.h"
#include "platform/linux/x11/windows/x11_accessibility.h"
#include "platform/posix/system_clock.h"

namespace rondora::live {

/// An application with one window on the desktop of the test.
struct StartedApplication {
  std::unique_ptr<ChildProcess> process;
  xcb_window_t window = XCB_NONE;
};

class MenusTest : public testing::Test {
 protected:
  MenusTest();

  /// Switches the accessibility bus on, and waits for it.
  void switchOn();
  void startRegistrar();
  bool isSwitched(const std::string& state);
  StartedApplication start(const std::vector<std::string>& command);
  AppMenuCommandReader::Crawl crawl(const StartedApplication& application);
  /// Waits until the application publishes its menus as a whole.
  bool isPublished(const StartedApplication& application);

  PrivateDesktop desktop_;
  XClient client_;
  std::vector<RunningApplication> running_;
  menus::MenuPublishing publishing_;
  menus::PublishedMenus menus_;
  x11::WorkerConnection worker_{1};
  x11::WindowOwners owners_;
  x11::X11Accessibility accessibility_{worker_, owners_};
  desktop::SystemClock clock_;
  AppMenuCommandReader reader_{accessibility_, clock_};
};

}  // namespace rondora::live
