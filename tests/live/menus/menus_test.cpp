#include "live/menus/menus_test.h"

#include <cstdlib>

#include "desktop/wait.h"
#include "platform/posix/serial_thread.h"

namespace rondora::live {
namespace {

DesktopParts parts() { return {WindowManager::openbox, Compositor::none, Tray::none}; }

/// The object under test finds the bus in its own environment.
const PrivateDesktop& adopt(const PrivateDesktop& desktop) {
  for (const auto& [variable, value] : desktop.environment()) setenv(variable.c_str(), value.c_str(), 1);
  return desktop;
}

}  // namespace

MenusTest::MenusTest()
    : desktop_(parts()),
      client_(adopt(desktop_).display()),
      publishing_(std::make_unique<desktop::SerialThread>("publishing"), [this] { return running_; }) {
  accessibility_.setMenus(menus_);
}

void MenusTest::switchOn() {
  publishing_.want(true);
  EXPECT_TRUE(isSwitched("true"));
  EXPECT_TRUE(waitUntil([&] {
    return desktop_.outputOf({"xprop", "-root", "AT_SPI_BUS"})->find("unix:") != std::string::npos;
  }));
}

void MenusTest::startRegistrar() {
  EXPECT_TRUE(desktop_.outputOf(
      {"busctl", "--user", "call", "com.canonical.AppMenu.Registrar", "/", "org.freedesktop.DBus.Peer", "Ping"}));
}

bool MenusTest::isSwitched(const std::string& state) {
  return waitUntil([&] {
    const auto value = desktop_.outputOf(
        {"busctl", "--user", "get-property", "org.a11y.Bus", "/org/a11y/bus", "org.a11y.Status", "IsEnabled"});
    return value == "b " + state + "\n";
  });
}

StartedApplication MenusTest::start(const std::vector<std::string>& command) {
  StartedApplication started{desktop_.start(command)};
  EXPECT_TRUE(waitUntil([&] {
    for (const xcb_window_t window : client_.clientList()) {
      if (client_.ownerOf(window) == started.process->pid()) started.window = window;
    }
    return started.window != XCB_NONE;
  })) << command.front();
  running_.emplace_back();
  running_.back().processIdentifier = started.process->pid();
  running_.back().localizedName = command.front();
  return started;
}

AppMenuCommandReader::Crawl MenusTest::crawl(const StartedApplication& application) {
  return reader_.readItems(application.process->pid(), kPatience.count(), 3);
}

bool MenusTest::isPublished(const StartedApplication& application) {
  return waitUntil([&] {
    const auto menus = crawl(application);
    return menus.isComplete && !menus.items.empty();
  });
}

}  // namespace rondora::live
