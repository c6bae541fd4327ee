#include "storage/config_manager.h"

#include <gmock/gmock.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/virtual_time.h"
#include "localization/localization_store.h"
#include "storage/configuration_json.h"
#include "storage/debounced_save.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;
using testing::StartsWith;
using Operation = FakeFileSystem::Operation;

constexpr std::string_view kFolder = "/home/user/.config/Rondora";
// The moment at which virtual time starts.
constexpr std::string_view kBackup = "/home/user/.config/Rondora/config.broken-2023-03-08T202640";

class ConfigManagerTest : public testing::Test {
 protected:
  void start() {
    manager = std::make_unique<ConfigManager>(ConfigManager::Services{files, time, log, random, notifications});
    observer = notifications.addObserver(ConfigManager::configurationDidChange, [this] { ++posts; });
  }
  std::string document() { return files.files[url]; }
  nlohmann::json json() { return nlohmann::json::parse(document(), nullptr, false); }
  std::vector<std::string> errors() const {
    std::vector<std::string> texts;
    for (const auto& line : log.lines) texts.push_back((line.level == LogLevel::error ? "" : "standard: ") + line.text);
    return texts;
  }

  FakeFileSystem files;
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  std::unique_ptr<ConfigManager> manager;
  Subscription observer;
  int posts = 0;
  const std::string url = std::string(kFolder) + "/config.json";
};

TEST_F(ConfigManagerTest, FirstStartWritesTheFirstRunDocument) {
  start();
  EXPECT_EQ(manager->configURL(), url);
  EXPECT_THAT(document(), StartsWith("{\n  \"schemaVersion\": 3,\n  \"menus\": [\n    {\n      \"id\": \""));
  EXPECT_EQ(json()["menus"].size(), 3U);
  EXPECT_EQ(json()["menus"][0]["globalSidebarIconColorHex"], "#007AFF");
  EXPECT_THAT(log.lines, IsEmpty());
  EXPECT_EQ(manager->current().lastModified, kDistantPast);
}

TEST_F(ConfigManagerTest, UndecodableFileIsKeptAside) {
  files.put(url, "{");
  start();
  const std::string backup = std::string(kBackup) + ".json";
  EXPECT_EQ(files.files[backup], "{");
  EXPECT_EQ(json()["menus"].size(), 3U);
  EXPECT_THAT(errors(),
              ElementsAre(StartsWith("decodeConfig failed: not JSON: "), "config unreadable, backup saved: " + backup));
}

TEST_F(ConfigManagerTest, AnEarlierBackupIsNeverOverwritten) {
  for (const std::string bytes : {"{", "[", "]"}) {
    files.put(url, bytes);
    start();
  }
  const std::string stem(kBackup);
  EXPECT_EQ(files.files[stem + ".json"], "{");
  EXPECT_EQ(files.files[stem + "-2.json"], "[");
  EXPECT_EQ(files.files[stem + "-3.json"], "]");
}

TEST_F(ConfigManagerTest, FailedBackupIsLoggedAndTheDocumentReplaced) {
  files.put(url, R"({"menus": 1})");
  files.failures = {{Operation::copy, "no space"}};
  start();
  EXPECT_EQ(json()["menus"].size(), 3U);
  EXPECT_THAT(errors(), ElementsAre("decodeConfig failed: menus: expected an array", "config backup failed: no space"));
}

TEST_F(ConfigManagerTest, AFileThatIsTooLongIsKeptAside) {
  files.put(url, "gigabytes");
  files.tooLong = {url};
  start();
  EXPECT_EQ(files.files[std::string(kBackup) + ".json"], "gigabytes");
  EXPECT_THAT(errors(), ElementsAre("decodeConfig failed: document: too long", StartsWith("config unreadable, ")));
}

TEST_F(ConfigManagerTest, UnreadableBytesGiveTheFirstRunDocumentInSilence) {
  files.put(url, "{}");
  files.failures = {{Operation::read, "denied"}};
  start();
  EXPECT_THAT(manager->current().menus, SizeIs(3));
  EXPECT_THAT(errors(), IsEmpty());
  EXPECT_THAT(files.files, SizeIs(1));
}

TEST_F(ConfigManagerTest, WithoutAFolderTheConfigurationLivesInMemory) {
  files.failures = {{Operation::createFolder, "read-only"}};
  start();
  EXPECT_THAT(manager->current().menus, SizeIs(3));
  EXPECT_THAT(errors(),
              ElementsAre("failed to create config dir: read-only", "writeLocal failed: No such file or directory"));
}

TEST_F(ConfigManagerTest, SaveStampsPublishesWritesAndNotifiesInThisOrder) {
  start();
  std::vector<std::string> steps;
  const Subscription values = manager->configuration().subscribe([&](const PieConfiguration& each) {
    const bool written = json()["menus"][0]["name"] == each.menus[0].name;
    steps.push_back(each.menus[0].name + (written ? " on disk" : " in memory"));
  });
  const Subscription notices = notifications.addObserver("Rondora.configurationDidChange", [&] {
    steps.push_back("changed to " + json()["menus"][0]["name"].get<std::string>());
  });
  time.advance(5);
  PieConfiguration edited = manager->current();
  edited.menus[0].name = "Edited";
  manager->save(edited);
  EXPECT_THAT(steps, ElementsAre("Main on disk", "Edited in memory", "changed to Edited"));
  EXPECT_EQ(manager->current().lastModified, VirtualTime::kStart + 5);
  EXPECT_EQ(json()["lastModified"], VirtualTime::kStart + 5);
}

TEST_F(ConfigManagerTest, EveryLaterSaveCountsAsAChangeAndAnEqualOneDoesNot) {
  start();
  manager->save(manager->current());
  manager->save(manager->current());
  EXPECT_EQ(posts, 1);
  time.advance(1);
  manager->save(manager->current());
  EXPECT_EQ(posts, 2);
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

TEST_F(ConfigManagerTest, ASaveThatCannotBeWrittenStillHolds) {
  start();
  const std::string before = document();
  files.failures = {{Operation::replaceDurably, "disk full"}};
  PieConfiguration edited = manager->current();
  edited.menus[0].name = "Edited";
  manager->save(edited);
  edited.menus[0].iconSize = std::numeric_limits<double>::infinity();
  manager->save(edited);
  EXPECT_EQ(manager->current().menus[0].name, "Edited");
  EXPECT_EQ(document(), before);
  EXPECT_EQ(posts, 2);
  EXPECT_THAT(errors(),
              ElementsAre("writeLocal failed: disk full", "writeLocal failed: iconSize: not a finite number"));
}

TEST_F(ConfigManagerTest, ASaveFromASubscriberLeavesTheNewestOnDisk) {
  start();
  const Subscription answering = manager->configuration().subscribe([&](const PieConfiguration& each) {
    if (each.menus[0].name != "Edited") return;
    PieConfiguration again = each;
    again.menus[0].name = "Again";
    manager->save(again);
  });
  PieConfiguration edited = manager->current();
  edited.menus[0].name = "Edited";
  manager->save(edited);
  EXPECT_EQ(manager->current().menus[0].name, "Again");
  EXPECT_EQ(json()["menus"][0]["name"], "Again");
}

TEST_F(ConfigManagerTest, ExportedDocumentCanBeImported) {
  start();
  ASSERT_EQ(manager->exportConfiguration("/home/user/.config/Rondora/backup.json"), std::nullopt);
  PieConfiguration edited = manager->current();
  edited.menus[0].name = "Edited";
  manager->save(edited);
  EXPECT_EQ(manager->importConfiguration("/home/user/.config/Rondora/backup.json"), std::nullopt);
  EXPECT_EQ(json()["menus"][0]["name"], "Main");
  EXPECT_EQ(manager->current().lastModified, time.now());
}

TEST_F(ConfigManagerTest, AFileThatIsNoDocumentIsRefused) {
  start();
  const PieConfiguration before = manager->current();
  files.put("/tmp/other.json", R"({"menus": [{}]})");
  for (const char* path : {"/tmp/other.json", "/tmp/missing.json"}) {
    const auto message = manager->importConfiguration(path);
    ASSERT_TRUE(message) << path;
    EXPECT_EQ(LocalizationStore().text(*message), "Couldn't read this file. Please choose a valid settings backup.");
  }
  EXPECT_EQ(manager->current(), before);
}

TEST_F(ConfigManagerTest, ABurstOfEditsIsSavedOnceAndAsItWasLast) {
  start();
  DebouncedSave debounced(*manager, time);
  PieConfiguration edited = manager->current();
  for (const char* name : {"E", "Ed", "Edi"}) {
    edited.menus[0].name = name;
    debounced.edit(edited);
    time.advance(0.219);
    EXPECT_EQ(posts, 0);
  }
  time.advance(0.001);
  EXPECT_EQ(posts, 1);
  EXPECT_EQ(json()["menus"][0]["name"], "Edi");

  edited.menus[0].name = "Edit";
  debounced.edit(edited);
  debounced.flush();
  EXPECT_EQ(json()["menus"][0]["name"], "Edit");
  time.advance(1);
  debounced.flush();
  EXPECT_EQ(posts, 2);
}

}  // namespace
}  // namespace rondora
