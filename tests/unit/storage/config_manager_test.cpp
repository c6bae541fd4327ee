#include "storage/config_manager.h"

#include <gmock/gmock.h>

#include <limits>
#include <nlohmann/json.hpp>

#include "doubles/fake_devices.h"
#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/virtual_time.h"
#include "storage/configuration_json.h"
#include "storage/edit_session.h"

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
  void rename(const std::string& firstMenu) {
    PieConfiguration edited = manager->current();
    edited.menus[0].name = firstMenu;
    manager->save(edited);
  }
  std::string document() { return files.files[url]; }
  nlohmann::json json() { return nlohmann::json::parse(document(), nullptr, false); }
  std::string nameOnDisk() { return json()["menus"][0]["name"]; }
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
  EXPECT_THAT(document(), StartsWith("{\n  \"schemaVersion\": 3,\n  \"menus\": [\n    {\n      \"id\": \""));
  EXPECT_EQ(json()["menus"].size(), 3U);
  EXPECT_EQ(json()["menus"][0]["globalSidebarIconColorHex"], "#007AFF");
  EXPECT_THAT(log.lines, IsEmpty());
  EXPECT_EQ(manager->current().lastModified, kDistantPast);
}

TEST_F(ConfigManagerTest, UndecodableFilesAreKeptAsideAndReplaced) {
  for (const std::string bytes : {"{", "[", "]"}) {
    files.put(url, bytes);
    start();
    EXPECT_EQ(json()["menus"].size(), 3U);
  }
  const std::string stem(kBackup);
  EXPECT_EQ(files.files[stem + ".json"], "{");
  EXPECT_EQ(files.files[stem + "-2.json"], "[");
  EXPECT_EQ(files.files[stem + "-3.json"], "]");
  EXPECT_THAT(errors().at(0), StartsWith("decodeConfig failed: not JSON: "));
  EXPECT_EQ(errors().at(1), "config unreadable, backup saved: " + stem + ".json");
}

TEST_F(ConfigManagerTest, WhateverFailsAtTheStartIsLoggedAndLeavesAMenu) {
  struct Case {
    std::map<Operation, std::string> failures;
    bool isTooLong;
    std::string left;  // on disk as the document
    std::vector<std::string> errors;
  };
  const std::string folderMissing = "failed to create config dir: read-only";
  const std::string keptAside = "config unreadable, backup saved: " + std::string(kBackup) + ".json";
  const Case cases[] = {
      {{{Operation::copy, "no space"}},
       false,
       "{\n",
       {"decodeConfig failed: menus: expected an array", "config backup failed: no space"}},
      {{}, true, "{\n", {"decodeConfig failed: document: too long", keptAside}},
      {{{Operation::read, "denied"}}, false, "{\n", {}},
      {{{Operation::createFolder, "read-only"}, {Operation::replaceDurably, "read-only"}},
       false,
       R"({"menus")",
       {folderMissing, "decodeConfig failed: menus: expected an array", keptAside, "writeLocal failed: read-only"}},
  };
  for (const Case& each : cases) {
    files = {};
    log.lines.clear();
    files.put(url, R"({"menus": 1})");
    files.failures = each.failures;
    if (each.isTooLong) files.tooLong = {url};
    start();
    EXPECT_THAT(manager->current().menus, SizeIs(3));
    EXPECT_THAT(document(), StartsWith(each.left));
    EXPECT_EQ(errors(), each.errors);
  }
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

TEST_F(ConfigManagerTest, ASaveThatCannotBeWrittenHoldsInMemory) {
  start();
  const std::string before = document();
  files.failures = {{Operation::replaceDurably, "disk full"}};
  rename("Edited");
  PieConfiguration endless = manager->current();
  endless.menus[0].iconSize = std::numeric_limits<double>::infinity();
  manager->save(endless);
  EXPECT_EQ(manager->current().menus[0].name, "Edited");
  EXPECT_EQ(document(), before);
  EXPECT_EQ(posts, 2);
  EXPECT_THAT(errors(),
              ElementsAre("writeLocal failed: disk full", "writeLocal failed: iconSize: not a finite number"));
}

TEST_F(ConfigManagerTest, ASaveFromASubscriberIsTheOneOnDisk) {
  start();
  const Subscription answering = manager->configuration().subscribe([&](const PieConfiguration& each) {
    if (each.menus[0].name == "Edited") rename("Again");
  });
  rename("Edited");
  EXPECT_EQ(manager->current().menus[0].name, "Again");
  EXPECT_EQ(nameOnDisk(), "Again");
}

TEST_F(ConfigManagerTest, OnlyADocumentCanBeImported) {
  start();
  const std::string exported = "/home/user/.config/Rondora/backup.json";
  ASSERT_EQ(manager->exportConfiguration(exported), std::nullopt);
  rename("Edited");
  files.put("/tmp/other.json", R"({"menus": [{}]})");
  for (const char* path : {"/tmp/other.json", "/tmp/missing.json"}) {
    EXPECT_EQ(manager->importConfiguration(path), StringKey::importRefused) << path;
    EXPECT_EQ(nameOnDisk(), "Edited");
  }
  time.advance(1);
  EXPECT_EQ(manager->importConfiguration(exported), std::nullopt);
  EXPECT_EQ(nameOnDisk(), "Main");
  EXPECT_EQ(manager->current().lastModified, time.now());
}

TEST_F(ConfigManagerTest, EditsOfOneBurstAllCountAndAreSavedOnce) {
  start();
  EditSession session(*manager, time);
  session.edit([](PieConfiguration& document) { document.language = AppLanguage::german; });
  for (const char* name : {"E", "Ed", "Edi"}) {
    session.edit([name](PieConfiguration& document) { document.menus[0].name = name; });
    time.advance(0.219);
    EXPECT_EQ(posts, 0);
  }
  EXPECT_EQ(session.document().menus[0].name, "Edi");
  time.advance(0.001);
  EXPECT_EQ(posts, 1);
  EXPECT_EQ(nameOnDisk(), "Edi");
  EXPECT_EQ(manager->current().language, AppLanguage::german);
  session.edit([](PieConfiguration& document) { document.menus[0].name = "Edit"; });
  session.flush();
  EXPECT_EQ(nameOnDisk(), "Edit");
  time.advance(1);
  session.flush();
  EXPECT_EQ(posts, 2);
}

TEST_F(ConfigManagerTest, APendingEditNeverUndoesAnImport) {
  start();
  const std::string exported = "/home/user/backup.json";
  ASSERT_EQ(manager->exportConfiguration(exported), std::nullopt);
  EditSession session(*manager, time);
  session.edit([](PieConfiguration& document) { document.menus[0].name = "Edited"; });
  EXPECT_EQ(manager->importConfiguration("/home/user/missing.json"), StringKey::importRefused);
  EXPECT_EQ(session.document().menus[0].name, "Edited") << "a refused import leaves the edit alone";
  EXPECT_EQ(manager->importConfiguration(exported), std::nullopt);
  time.advance(1);
  EXPECT_EQ(nameOnDisk(), "Main");
  EXPECT_EQ(session.document().menus[0].name, "Main");
}

}  // namespace
}  // namespace rondora
