#include "storage/config_manager.h"

#include <gmock/gmock.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"
#include "storage/configuration_json.h"
#include "storage/edit_session.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;

struct Config {
  void start() {
    manager = std::make_unique<ConfigManager>(ConfigManager::Services{
        files, time, log, random, notifications, [this](const KeptDocument& document) { kept = document; }});
    observer = notifications.addObserver(ConfigManager::kConfigurationDidChange, [this] { ++posts; });
  }
  void rename(const std::string& firstMenu) {
    PieConfiguration edited = manager->current();
    edited.menus[0].name = firstMenu;
    manager->save(edited);
  }
  std::string document() { return files.files[url]; }
  nlohmann::json json() { return nlohmann::json::parse(document(), nullptr, false); }
  std::string nameOnDisk() { return json()["menus"][0]["name"]; }
  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  std::unique_ptr<ConfigManager> manager;
  Subscription observer;
  KeptDocument kept;
  int posts = 0;
  const std::string url = "/home/user/.config/Rondora/config.json";
};

/// An edit session is made at first use; reading "log" empties it.
struct ConfigStory : Config, Story {
  using W = const Words&;

  ConfigStory() {
    const auto rest = [](W w) { return joined({w.begin() + 1, w.end()}); };
    actions = {{"put", [=, this](W w) { files.put(w.at(0), rest(w)); }},
               {"fail", [=, this](W w) { files.failures[w.at(0)] = rest(w); }},
               {"heal", [this](W) { files.failures.clear(); }},
               {"too-long", [this](W) { files.tooLong = {url}; }},
               {"start", [this](W) { start(); }},
               {"rename", [this](W w) { rename(w.at(0)); }},
               {"endless", [this](W) { saveEndless(); }},
               {"export", [this](W w) { EXPECT_EQ(manager->exportConfiguration(w.at(0)), std::nullopt); }},
               {"import", [this](W w) { imported = manager->importConfiguration(w.at(0)); }},
               {"wait", [this](W w) { time.advance(std::stod(w.at(0))); }},
               {"edit", [this](W w) { session().edit([&](auto& document) { document.menus[0].name = w.at(0); }); }},
               {"german", [this](W) { session().edit([](auto& each) { each.language = AppLanguage::german; }); }},
               {"flush", [this](W) { session().flush(); }}};
    observations = {{"disk", [this] { return json()["menus"].is_array() ? nameOnDisk() : document(); }},
                    {"memory", [this] { return manager->current().menus.at(0).name; }},
                    {"session", [this] { return session().document().menus.at(0).name; }},
                    {"menus", [this] { return std::to_string(manager->current().menus.size()); }},
                    {"language", [this] { return std::string(rawValue(manager->current().language)); }},
                    {"stamped-now", [this] { return yesOrNo(manager->current().lastModified == time.now()); }},
                    {"posts", [this] { return std::to_string(posts); }},
                    {"refused", [this] { return imported ? imported->problem : "no"; }},
                    {"kept", [this] { return describe(kept); }},
                    {"kept-aside", [this] { return keptAside(); }},
                    {"log", [this] { return log.take(); }}};
  }
  EditSession& session() { return edits ? *edits : edits.emplace(*manager, time); }
  void saveEndless() {
    PieConfiguration endless = manager->current();
    endless.menus[0].iconSize = std::numeric_limits<double>::infinity();
    manager->save(endless);
  }
  /// "copied", "renamed" or "failed", then the problem and the new name.
  static std::string describe(const KeptDocument& document) {
    constexpr const char* kKeepings[] = {"copied: ", "renamed: ", "failed: "};
    return kKeepings[static_cast<int>(document.keeping)] + document.problem + (document.problem.empty() ? "" : " ") +
           "-> " + std::filesystem::path(document.file).filename().string();
  }
  /// The stamp is the time at which virtual time starts.
  std::string keptAside() const {
    Words contents;
    for (const auto& [path, bytes] : files.files) {
      if (path.string().find("2023-03-08T202640") != std::string::npos) contents.push_back(bytes);
    }
    return joined(contents);
  }

  std::optional<EditSession> edits;
  std::optional<ConfigManager::ImportRefusal> imported;
};

class ConfigManagerTest : public testing::Test, protected Config {};

TEST(ConfigStories, PlayAsWritten) { playStories<ConfigStory>("config_manager"); }

TEST_F(ConfigManagerTest, FirstStartWritesTheFirstRunDocument) {
  start();
  EXPECT_THAT(document(), StartsWith("{\n  \"schemaVersion\": 3,\n  \"menus\": [\n    {\n      \"id\": \""));
  EXPECT_EQ(json()["menus"].size(), 3U);
  EXPECT_EQ(json()["menus"][0]["globalSidebarIconColorHex"], "#007AFF");
  EXPECT_THAT(log.lines, IsEmpty());
  EXPECT_EQ(manager->current().lastModified, kDistantPast);
}

TEST_F(ConfigManagerTest, SaveStampsPublishesWritesAndNotifiesInThisOrder) {
  start();
  std::vector<std::string> steps;
  const Subscription values = manager->configuration().subscribe([&](const PieConfiguration& each) {
    steps.push_back(each.menus[0].name + (nameOnDisk() == each.menus[0].name ? " on disk" : " in memory"));
  });
  const Subscription notices = notifications.addObserver("Rondora.configurationDidChange",
                                                         [&] { steps.push_back("changed to " + nameOnDisk()); });
  time.advance(5);
  rename("Edited");
  EXPECT_THAT(steps, ElementsAre("Main on disk", "Edited in memory", "changed to Edited"));
  EXPECT_EQ(json()["lastModified"], VirtualTime::kStart + 5);
  manager->save(manager->current());
  EXPECT_THAT(steps, SizeIs(3)) << "nothing differs, not even the time";
  time.advance(1);
  manager->save(manager->current());
  EXPECT_THAT(steps, SizeIs(5));
}

TEST_F(ConfigManagerTest, SaveKeepsOneMenuOfEachSpecialKind) {
  start();
  PieConfiguration edited = manager->current();
  edited.schemaVersion = 9;
  edited.menus.insert(edited.menus.begin(), edited.menus[1]);
  edited.menus[0].name = "First";
  std::erase_if(edited.menus, [](const PieMenu& menu) { return menu.kind == PieMenuKind::appCommands; });
  manager->save(edited);
  std::vector<std::string> names;
  const nlohmann::json written = json();
  for (const auto& menu : written["menus"]) names.push_back(menu["name"]);
  EXPECT_THAT(names, ElementsAre("First", "Main", "App commands"));
  EXPECT_EQ(written["schemaVersion"], 3);
}

TEST_F(ConfigManagerTest, SaveBySubscriberReachesTheDisk) {
  start();
  const Subscription answering = manager->configuration().subscribe([&](const PieConfiguration& each) {
    if (each.menus[0].name == "Edited") rename("Again");
  });
  rename("Edited");
  EXPECT_EQ(manager->current().menus[0].name, "Again");
  EXPECT_EQ(nameOnDisk(), "Again");
}

}  // namespace
}  // namespace rondora
