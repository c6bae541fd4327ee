#include "platform/linux/desktop/desktop_entries.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include "desktop/wait.h"
#include "doubles/fake_session.h"
#include "live/desktop/applications_folder.h"
#include "platform/linux/desktop/installed_applications.h"

namespace rondora::desktop {
namespace {

WindowIdentity window(const char* applicationId, const char* className, const char* instanceName = "",
                      const char* executable = "") {
  return {applicationId, className, instanceName, executable};
}

TEST(DesktopEntriesTest, IdentifiesWindowsByTheirNames) {
  const DesktopEntries entries;
  struct Case {
    WindowIdentity identity;
    std::optional<std::string> id;
  };
  const Case cases[] = {
      {window("org.example.Editor", "ViewerWindow"), "org.example.Editor"},
      {window("org.example.Unknown", "ViewerWindow"), "plain-viewer"},
      {window("", "viewerwindow", "player"), "plain-viewer"},
      {window("", "Browser", "crx_mail"), "browser-app"},
      {window("", "Browser", "browser"), "browser"},
      {window("", "Navigator", "PLAYER"), "player"},
      {window("", "Editor", "x", "player"), "org.example.Editor"},
      {window("", "Nothing", "", "viewer"), "plain-viewer"},
      {window("", "Nothing", "", "editor"), "org.example.Editor"},  // not its settings, the same program
      {window("", "Nothing", "", "player"), "player"},              // not its hidden helper
      {window("", "Script", "script", "python3"), std::nullopt},    // interpreters identify nothing
      {window("", "app"), std::nullopt},                            // "script.app" is not a reversed domain
      {window("", "gone"), std::nullopt},
      {window("", ""), std::nullopt},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(entries.idOfWindow(one.identity), one.id)
        << one.identity.applicationId << "|" << one.identity.className << "|" << one.identity.instanceName << "|"
        << one.identity.executable;
  }
}

TEST(InstalledApplicationsTest, ReturnsNamesAndIcons) {
  FakeProcessEnvironment environment;
  const InstalledApplications installed(environment, {});
  EXPECT_EQ(installed.name("org.example.Editor"), "org.example.Editor");
  EXPECT_EQ(installed.iconSource("org.example.Editor")->themeName, "accessories-text-editor");
  EXPECT_EQ(installed.iconSource("plain-viewer")->filePath, "/opt/viewer/icon.png");
  EXPECT_FALSE(installed.iconSource("player"));
  EXPECT_FALSE(installed.name("gone"));
}

TEST(DesktopEntriesTest, ListsWhatTheUserCanStart) {
  std::map<std::string, StartableApplication> listed;
  for (auto& each : DesktopEntries().startable()) listed[each.bundleIdentifier] = each;
  EXPECT_EQ(listed["painter"],
            (StartableApplication{"painter", "painter", "Image Editor", {"photo", "paint box"}, ""}));
  EXPECT_EQ(listed["org.example.Editor"].executable, "editor");
  for (const char* id : {"a-hidden-player", "gone", "elsewhere"}) EXPECT_FALSE(listed.contains(id)) << id;
  EXPECT_TRUE(listed.contains("in-terminal"));
}

TEST(InstalledApplicationsTest, ReportsAddedAndRemovedEntries) {
  FakeProcessEnvironment environment;
  InstalledApplications installed(environment, {});
  installed.warmUp();
  bool isReported = false;
  const Subscription observer = installed.onChanged([&isReported] { isReported = true; });
  const auto waitUntil = [](const auto& condition) {
    return live::waitUntil([&] {
      g_main_context_iteration(nullptr, FALSE);
      return condition();
    });
  };
  applicationsFolder().addEntry("newcomer", "Exec=player --new\n");
  EXPECT_TRUE(waitUntil([&] { return isReported; })) << "before the next look-up";
  EXPECT_TRUE(installed.isInstalled("newcomer"));
  std::filesystem::remove(applicationsFolder().path() / "system" / "applications" / "newcomer.desktop");
  EXPECT_TRUE(waitUntil([&] { return !installed.isInstalled("newcomer"); }));
}

}  // namespace
}  // namespace rondora::desktop
