#include <gmock/gmock.h>
#include <signal.h>

#include <algorithm>

#include "desktop/wait.h"
#include "live/menus/menus_test.h"

namespace rondora::live {
namespace {

using testing::IsEmpty;
using testing::Not;
using Path = std::vector<std::string>;

constexpr const char* kQtApplication = "/usr/lib/qt6/bin/linguist";
/// Seconds; less than two requests to a stopped application take.
constexpr double kOneRequest = 0.35;

struct PublishingApplication {
  const char* name;
  std::string command;
  Path path;
  std::optional<MenuShortcut> shortcut;
  /// Of the window that the command opens.
  std::string opens;
  Path disabled;
  bool needsRegistrar = false;
};

void PrintTo(const PublishingApplication& application, std::ostream* out) { *out << application.name; }

class ApplicationMenusTest : public MenusTest, public testing::WithParamInterface<PublishingApplication> {
 protected:
  /// Asks again when a busy machine has used up the time of a search.
  std::optional<AppMenuItemInfo> item(pid_t process, const Path& path,
                                      const std::optional<MenuShortcut>& shortcut = std::nullopt) {
    std::optional<AppMenuItemInfo> found;
    waitUntil([&] { return (found = reader_.item(process, path, shortcut, true)).has_value(); });
    return found;
  }
};

TEST_P(ApplicationMenusTest, AreReadAndPressed) {
  const auto& [name, command, path, shortcut, opens, disabled, needsRegistrar] = GetParam();
  switchOn();
  if (needsRegistrar) startRegistrar();
  const auto application = start({command});
  ASSERT_TRUE(isPublished(application));
  const pid_t process = application.process->pid();
  for (const auto& item : crawl(application).items) {
    EXPECT_THAT(item.title, Not(testing::AnyOf(testing::StartsWith(" "), testing::EndsWith(" "), IsEmpty())));
  }
  const auto renamed = item(process, {"No", "Such"}, shortcut);
  EXPECT_EQ(renamed.value_or(AppMenuItemInfo()).path, path);
  if (!disabled.empty()) {
    const auto inert = item(process, disabled);
    ASSERT_TRUE(inert);
    EXPECT_FALSE(inert->isEnabled || inert->element->perform("AXPress"));
  }
  const auto found = item(process, path);
  ASSERT_TRUE(found);
  const std::size_t before = client_.windowsTitled(opens).size();
  found->element->setMessagingTimeout(kPatience.count());
  EXPECT_TRUE(found->isEnabled && found->element->perform("AXPress"));
  EXPECT_TRUE(waitUntil([&] { return client_.windowsTitled(opens).size() > before; }));
}

const PublishingApplication kApplications[] = {
    {"Gtk3", "mousepad", {"File", "New Window"}, {{"N", 13}}, "Untitled 2 - Mousepad", {"Edit", "Undo"}},
    {"Gtk4", "gtk4-demo-application", {"Application", "New"}, {{"N", 12}}, "Application Class", {}},
    {"Qt6", kQtApplication, {"Phrases", "New Phrase Book..."}, {{"N", 12}}, "Create New Phrase Book", {"File", "Save"}},
    {"Qt5", "featherpad", {"File", "Open"}, {{"O", 12}}, "Open file...", {"Edit", "Undo"}},
    {"Qt5WithRegistrar", "featherpad", {"File", "Open"}, {{"O", 12}}, "Open file...", {"Edit", "Undo"}, true}};

INSTANTIATE_TEST_SUITE_P(Toolkits, ApplicationMenusTest, testing::ValuesIn(kApplications),
                         [](const auto& tested) { return std::string(tested.param.name); });

TEST_F(MenusTest, StoppedApplicationDelaysNeitherItselfNorOthers) {
  switchOn();
  const auto stopped = start({"mousepad"});
  const auto other = start({kQtApplication});
  ASSERT_TRUE(isPublished(stopped));
  ASSERT_TRUE(isPublished(other));
  kill(stopped.process->pid(), SIGSTOP);
  for (int i = 0; i < 3; ++i) {
    EXPECT_TRUE(waitUntil([&] {
      const double begin = clock_.uptime();
      EXPECT_FALSE(reader_.readItems(stopped.process->pid(), 1, 3).isComplete);
      return clock_.uptime() - begin < kOneRequest;
    })) << "whenever the machine is not busy";
    EXPECT_TRUE(isPublished(other));
  }
  kill(stopped.process->pid(), SIGCONT);
  EXPECT_TRUE(isPublished(stopped));
}

TEST_F(MenusTest, SurvivesARestartOfTheBuses) {
  switchOn();
  ASSERT_TRUE(isPublished(start({"mousepad"})));
  desktop_.restartBus();
  EXPECT_TRUE(isPublished(start({"mousepad"})));
}

TEST_F(MenusTest, NamesApplicationsThatStartedTooEarly) {
  const auto late = start({"mousepad"});
  auto early = start({kQtApplication});
  startRegistrar();
  const auto registered = start({kQtApplication});
  switchOn();
  EXPECT_TRUE(
      waitUntil([&] { return publishing_.applicationsWithoutMenus() == std::vector<std::string>{kQtApplication}; }));
  early.process.reset();
  const auto restarted = start({kQtApplication});
  EXPECT_TRUE(isPublished(restarted));
  EXPECT_TRUE(waitUntil([&] { return publishing_.applicationsWithoutMenus().empty(); }));
  publishing_.want(false);
  EXPECT_THAT(publishing_.applicationsWithoutMenus(), IsEmpty());
  EXPECT_TRUE(isSwitched("false"));
}

}  // namespace
}  // namespace rondora::live
