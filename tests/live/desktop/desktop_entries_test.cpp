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

TEST(DesktopEntriesTest, IdentifiesWindowsByTheNamesTheyCarry) {
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
      {window("", "Nothing", "", "editor"), "org.example.Editor"},  // not its settings, which is the same program
      {window("", "Nothing", "", "player"), "player"},              // not its hidden helper
      {window("", "Script", "script", "python3"), std::nullopt},    // an interpreter is nobody's program
      {window("", "app"), std::nullopt},                            // "script.app" is no reversed domain
      {window("", "gone"), std::nullopt},
      {window("", ""), std::nullopt},
  };
  for (const Case& one : cases) {
    EXPECT_EQ(entries.idOfWindow(one.identity), one.id)
        << one.identity.applicationId << "|" << one.identity.className << "|" << one.identity.instanceName << "|"
        << one.identity.executable;
  }
}

TEST(DesktopEntriesTest, NoticesApplicationsThatComeAndGo) {
  const DesktopEntries entries;
  ASSERT_FALSE(entries.contains("newcomer"));
  const auto seenWithinPatience = [&](bool wanted) {
    return live::waitUntil([&] {
      g_main_context_iteration(nullptr, FALSE);
      return entries.contains("newcomer") == wanted;
    });
  };
  applicationsFolder().addEntry("newcomer", "Exec=player --new\n");
  EXPECT_TRUE(seenWithinPatience(true));
  std::filesystem::remove(applicationsFolder().path() / "system" / "applications" / "newcomer.desktop");
  EXPECT_TRUE(seenWithinPatience(false));
}

TEST(InstalledApplicationsTest, TellsNamesAndIcons) {
  FakeProcessEnvironment environment;
  const InstalledApplications installed(environment);
  EXPECT_EQ(installed.name("org.example.Editor"), "org.example.Editor");
  EXPECT_EQ(installed.iconSource("org.example.Editor")->themeName, "accessories-text-editor");
  EXPECT_EQ(installed.iconSource("plain-viewer")->filePath, "/opt/viewer/icon.png");
  EXPECT_FALSE(installed.iconSource("player"));
  EXPECT_FALSE(installed.name("gone"));
}

TEST(InstalledApplicationsTest, TellsOfAChangeBeforeAnybodyAsks) {
  FakeProcessEnvironment environment;
  InstalledApplications installed(environment);
  installed.warm();
  bool isTold = false;
  installed.onChanged = [&isTold] { isTold = true; };
  applicationsFolder().addEntry("latecomer", "Exec=player --late\n");
  EXPECT_TRUE(live::waitUntil([&isTold] {
    g_main_context_iteration(nullptr, FALSE);
    return isTold;
  }));
  EXPECT_TRUE(installed.isInstalled("latecomer"));
  std::filesystem::remove(applicationsFolder().path() / "system" / "applications" / "latecomer.desktop");
}

}  // namespace
}  // namespace rondora::desktop
