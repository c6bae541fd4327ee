#include <gio/gio.h>
#include <gmock/gmock.h>

#include "live/workspace/workspace_test.h"
#include "support/wait.h"

namespace rondora::live {
namespace {

using LaunchingTest = WorkspaceTest;

TEST_F(LaunchingTest, WhatIsNotInstalledIsNotFound) {
  EXPECT_FALSE(workspace().urlForApplication("org.example.Nothing"));
  EXPECT_FALSE(workspace().applicationName("org.example.Nothing"));
  EXPECT_FALSE(workspace().openUrl("rondora-nobody-handles-this://example.org"));
  EXPECT_FALSE(workspace().openUrl("example"));
  EXPECT_EQ(workspace().applicationName("com.apple.Notes"), "Mousepad");
  EXPECT_EQ(workspace().urlForApplication("com.apple.Terminal")->value, "debian-xterm");
  workspaceForUser().openApplication({"org.example.Nothing"});
}

TEST_F(LaunchingTest, RunsTextProgramsInATerminal) {
  const auto mark = desktop().configHome() / "text-program-ran";
  writeFile(desktop().dataHome() / "applications" / "text-program.desktop",
            "[Desktop Entry]\nType=Application\nName=Text program\nTerminal=true\nExec=sh -c \"tty >" + mark.string() +
                "; cat\"\n");
  ASSERT_TRUE(eventually([this] {
    g_main_context_iteration(nullptr, FALSE);
    return workspace().urlForApplication("text-program").has_value();
  }));
  workspaceForUser().openApplication(*workspace().urlForApplication("text-program"));
  EXPECT_TRUE(eventually([&] { return readFile(mark).starts_with("/dev/pts/"); }));
}

/// A screen saver as the bus sees one.
class ScreenSaver {
 public:
  ScreenSaver() {
    const char* interface =
        "<node><interface name='org.freedesktop.ScreenSaver'><method name='SetActive'><arg type='b' direction='in'/>"
        "<arg type='b' direction='out'/></method></interface></node>";
    node_ = g_dbus_node_info_new_for_xml(interface, nullptr);
    bus_ = g_dbus_connection_new_for_address_sync(
        g_getenv("DBUS_SESSION_BUS_ADDRESS"),
        static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                          G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
        nullptr, nullptr, nullptr);
    g_dbus_connection_register_object(bus_, "/org/freedesktop/ScreenSaver", node_->interfaces[0], &kMethods, this,
                                      nullptr, nullptr);
    g_variant_unref(g_dbus_connection_call_sync(bus_, "org.freedesktop.DBus", "/org/freedesktop/DBus",
                                                "org.freedesktop.DBus", "RequestName",
                                                g_variant_new("(su)", "org.freedesktop.ScreenSaver", 0U), nullptr,
                                                G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr));
  }
  ~ScreenSaver() {
    g_dbus_connection_close_sync(bus_, nullptr, nullptr);
    g_object_unref(bus_);
    g_dbus_node_info_unref(node_);
  }
  ScreenSaver(const ScreenSaver&) = delete;
  ScreenSaver& operator=(const ScreenSaver&) = delete;

  bool isActive() const { return isActive_; }

 private:
  static void called(GDBusConnection*, const char*, const char*, const char*, const char*, GVariant* arguments,
                     GDBusMethodInvocation* invocation, gpointer self) {
    gboolean value = FALSE;
    g_variant_get(arguments, "(b)", &value);
    static_cast<ScreenSaver*>(self)->isActive_ = value != FALSE;
    g_dbus_method_invocation_return_value(invocation, g_variant_new("(b)", TRUE));
  }

  static constexpr GDBusInterfaceVTable kMethods{called, nullptr, nullptr, {}};
  GDBusNodeInfo* node_ = nullptr;
  GDBusConnection* bus_ = nullptr;
  bool isActive_ = false;
};

TEST_F(LaunchingTest, TheScreenSaverIsThereWhenTheDesktopHasOne) {
  const char* path = "/System/Library/CoreServices/ScreenSaverEngine.app";
  EXPECT_FALSE(workspace().applicationAtPath(path));
  const ScreenSaver saver;
  const auto location = workspace().applicationAtPath(path);
  ASSERT_TRUE(location);
  EXPECT_FALSE(saver.isActive());
  workspaceForUser().openApplication(*location);
  EXPECT_TRUE(eventually([&] {
    g_main_context_iteration(nullptr, FALSE);
    return saver.isActive();
  }));
}

}  // namespace
}  // namespace rondora::live
