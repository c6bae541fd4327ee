#include "platform/linux/desktop/application_launcher.h"

#include <gtest/gtest.h>
#include <poll.h>
#include <signal.h>
#include <unistd.h>

#include <functional>
#include <sstream>
#include <string>
#include <utility>
#include <vector>

#include "desktop/wait.h"
#include "doubles/fake_session.h"
#include "live/desktop/applications_folder.h"
#include "platform/linux/desktop/installed_applications.h"

namespace rondora::desktop {
namespace {

/// Applications that report how they were started.
class ApplicationLauncherTest : public testing::Test {
 protected:
  static void SetUpTestSuite() {
    const auto& folder = applicationsFolder();
    folder.addProgram("reporter",
                      "{ cut -d' ' -f6 /proc/$$/stat; pwd; echo \"id:$DESKTOP_STARTUP_ID\"\n"
                      "grep SigBlk /proc/self/status; echo \"arguments:$*\"; } >\"$HOME/report.part\"\n"
                      "mv \"$HOME/report.part\" \"$HOME/report\"");
    folder.addEntry("reporter", "Exec=reporter %u\nStartupNotify=true\n");
    folder.addEntry("quiet-reporter", "Exec=reporter\nPath=/usr\n");
    folder.addEntry("url-reporter", "Exec=reporter --url %u\nMimeType=x-scheme-handler/report;\n");
    folder.addProgram("broken");
    writeFile(folder.programs() / "broken", "#!/nonexistent\n");
    folder.addEntry("broken", "Exec=broken\n");
    for (const auto& [name, end] : {std::pair("succeeds", "exit 0"), {"fails", "exit 3"}, {"crashes", "kill -9 $$"}}) {
      folder.addProgram(name, end);
      folder.addEntry(name, "Exec=" + std::string(name) + "\n");
    }
    folder.setDefaults("x-scheme-handler/report=url-reporter.desktop\n");
  }

  std::vector<std::string> report() const {
    const auto file = applicationsFolder().path() / "report";
    if (!live::waitUntil([&] { return std::filesystem::exists(file); })) return std::vector<std::string>(5);
    std::istringstream text(readFile(file));
    std::vector<std::string> lines;
    for (std::string line; std::getline(text, line);) lines.push_back(line);
    std::filesystem::remove(file);
    lines.resize(5);
    return lines;
  }

  /// Waits until the last process of the application has ended.
  StartedProcess endOf(const char* application) {
    live::waitUntil([&] {
      pollfd state{processes_.back().first, POLLIN, 0};
      return poll(&state, 1, 0) > 0;
    });
    EXPECT_EQ(installed_.startedProcess(application), StartedProcess::runs);
    const auto readable = processes_.back().second;
    readable();
    return installed_.startedProcess(application);
  }

  FakeProcessEnvironment environment_;
  std::vector<std::pair<int, std::function<void()>>> processes_;
  InstalledApplications installed_{environment_, [this](int descriptor, const auto& readable) {
                                     processes_.emplace_back(descriptor, readable);
                                     return Subscription();
                                   }};
};

TEST_F(ApplicationLauncherTest, StartsADetachedProcessWithTheUsersTimeStamp) {
  sigset_t blocked;
  sigset_t before;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  pthread_sigmask(SIG_BLOCK, &blocked, &before);
  ASSERT_TRUE(installed_.launch("reporter", 4711));
  pthread_sigmask(SIG_SETMASK, &before, nullptr);
  const auto lines = report();
  EXPECT_NE(lines[0], std::to_string(getsid(0)));
  EXPECT_EQ(lines[1], applicationsFolder().path());
  EXPECT_TRUE(lines[2].starts_with("id:rondora-") && lines[2].ends_with("_TIME4711")) << lines[2];
  EXPECT_EQ(lines[3], "SigBlk:\t0000000000000000");
  EXPECT_EQ(lines[4], "arguments:");
}

TEST_F(ApplicationLauncherTest, OmitsTheStartupIdAndPassesUrlsUnchanged) {
  setenv("DESKTOP_STARTUP_ID", "ours_TIME1", 1);
  ASSERT_TRUE(installed_.launch("quiet-reporter", 4711));
  unsetenv("DESKTOP_STARTUP_ID");
  const auto lines = report();
  EXPECT_EQ(lines[1], "/usr");
  EXPECT_EQ(lines[2], "id:") << "no StartupNotify";
  ASSERT_TRUE(installed_.launch("reporter", 0));
  EXPECT_EQ(report()[2], "id:") << "unknown time stamp";
  ASSERT_TRUE(live::waitUntil([this] { return installed_.openUrl("report://a/%20b?c=$HOME;d", 1); }));
  EXPECT_EQ(report()[4], "arguments:--url report://a/%20b?c=$HOME;d");
}

TEST_F(ApplicationLauncherTest, KnowsHowTheStartedProcessEnded) {
  EXPECT_EQ(installed_.startedProcess("fails"), StartedProcess::unknown);
  ASSERT_TRUE(installed_.launch("succeeds", 0) && endOf("succeeds") == StartedProcess::succeeded);
  ASSERT_TRUE(installed_.launch("fails", 0) && endOf("fails") == StartedProcess::failed);
  ASSERT_TRUE(installed_.launch("crashes", 0) && endOf("crashes") == StartedProcess::failed);
}

TEST_F(ApplicationLauncherTest, RefusesUninstalledAndBrokenApplications) {
  EXPECT_TRUE(installed_.isInstalled("broken"));
  EXPECT_FALSE(installed_.launch("broken", 1));
  EXPECT_FALSE(installed_.launch("no-such-application", 1));
  EXPECT_FALSE(installed_.openUrl("no such url", 1));
  EXPECT_FALSE(installed_.launch("/System/Applications/Mission Control.app", 1));
  EXPECT_FALSE(installed_.applicationAtPath("/System/Applications/Mission Control.app"));
  EXPECT_FALSE(installed_.applicationAtPath("/usr/bin/env"));
}

}  // namespace
}  // namespace rondora::desktop
