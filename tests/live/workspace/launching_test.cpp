#include <atomic>

#include "live/workspace/workspace_test.h"
#include "support/bus_service.h"

namespace rondora::live {
namespace {

using LaunchingTest = WorkspaceTest;

TEST_F(LaunchingTest, FindsTheScreenSaverOfTheDesktop) {
  const char* path = "/System/Library/CoreServices/ScreenSaverEngine.app";
  EXPECT_FALSE(workspace().applicationAtPath(path));
  std::atomic<bool> isActive = false;
  const BusService saver(desktop().environment().at("DBUS_SESSION_BUS_ADDRESS"), "org.freedesktop.ScreenSaver",
                         [&isActive](const auto&, const auto& method, GVariant* arguments) -> GVariant* {
                           if (method != "SetActive") return nullptr;
                           gboolean value = FALSE;
                           g_variant_get(arguments, "(b)", &value);
                           isActive = value != FALSE;
                           return g_variant_new("(b)", TRUE);
                         });
  const auto location = workspace().applicationAtPath(path);
  ASSERT_TRUE(location);
  workspaceForUser().openApplication(*location);
  EXPECT_TRUE(eventually([&isActive] { return isActive.load(); }));
}

}  // namespace
}  // namespace rondora::live
