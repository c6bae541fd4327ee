#include <gmock/gmock.h>
#include <sys/stat.h>

#include <algorithm>
#include <limits>

#include "desktop/temporary_folder.h"
#include "doubles/fake_devices.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/virtual_time.h"
#include "live/desktop/system_call_spy.h"
#include "platform/linux/desktop/file_user_defaults.h"
#include "platform/linux/desktop/xdg_folders.h"
#include "platform/posix/posix_file_system.h"
#include "storage/config_manager.h"
#include "storage/legacy_pie_menu_migration.h"

// What is on disk when the program is killed before any system call that changes files.

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int kNoCall = std::numeric_limits<int>::max();

/// A folder in memory, where hundreds of flushes are cheap.
fs::path inMemory() { return fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path(); }

/// A user's folders, initially empty, and the program's storage in them.
struct User {
  static FakeProcessEnvironment environmentIn(const fs::path& home) {
    FakeProcessEnvironment environment;
    environment.variables = {{"XDG_CONFIG_HOME", home / "config"}, {"XDG_CACHE_HOME", home / "cache"}};
    return environment;
  }
  fs::path configHome() const { return folder.path() / "config"; }
  fs::path cacheHome() const { return folder.path() / "cache"; }
  fs::path document() const { return configHome() / "Rondora" / "config.json"; }

  void start() { manager.emplace(ConfigManager::Services{files, time, log, random, notifications}); }
  void migrate() {
    FileUserDefaults defaults(files, log);
    LegacyPieMenuMigration({files, defaults, environment, log}).run();
  }

  TemporaryFolder folder{inMemory()};
  FakeProcessEnvironment environment = environmentIn(folder.path());
  PosixFileSystem files{xdgFolders(environment)};
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  std::optional<ConfigManager> manager;
};

/// Makes the document a link to a file in another folder.
void putLinkedDocument(const User& user, const std::string& text) {
  writeFile(user.folder.path() / "elsewhere" / "rings.json", text);
  fs::create_directories(user.document().parent_path());
  if (!fs::is_symlink(user.document())) fs::create_symlink("../../elsewhere/rings.json", user.document());
}

TEST(CutWriting, SaveLeavesTheOldOrTheNewDocument) {
  User user;
  putLinkedDocument(user, R"({"schemaVersion": 3, "menus": []})");
  user.start();
  const std::string before = readFile(user.document());
  const auto save = [&] {
    PieConfiguration edited = user.manager->current();
    edited.menus[0].name = std::string(100'000, 'E');
    user.manager->save(std::move(edited));
  };
  ASSERT_EQ(runUntilCall(kNoCall, save), Ending::completed);
  const std::string after = readFile(user.document());
  ASSERT_NE(after, before);

  Ending ending = Ending::cut;
  bool wasThere = false;
  for (int call = 1; ending == Ending::cut; ++call) {
    SCOPED_TRACE(call);
    putLinkedDocument(user, before);
    ending = runUntilCall(call, save);
    const std::string found = readFile(user.document());
    ASSERT_TRUE(found == after || (found == before && !wasThere)) << found.substr(0, 200);
    wasThere = found == after;
    struct stat status {};
    EXPECT_EQ(stat(user.document().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    EXPECT_TRUE(fs::is_symlink(user.document()));
  }
  EXPECT_TRUE(wasThere);
}

TEST(CutWriting, NextStartRemovesWhatKilledSavesLeft) {
  User user;
  const fs::path folder = user.document().parent_path();
  const std::vector<std::string> foreign = {".rondora-0123456.tmp", ".rondora-0123456g.tmp", "rondora-01234567.tmp"};
  for (const std::string& name : foreign) writeFile(folder / name, "not ours");
  user.start();
  const auto save = [&] { user.manager->save(user.manager->current()); };
  for (int call = 1; runUntilCall(call, save) == Ending::cut; ++call) user.time.advance(1);
  const auto count = [&] {
    return std::ranges::count_if(fs::directory_iterator(folder),
                                 [](const auto& entry) { return entry.path().extension() == ".tmp"; });
  };
  EXPECT_GT(count(), std::ssize(foreign));
  user.start();
  EXPECT_EQ(count(), std::ssize(foreign));
}

/// The content of the document and of its backups.
std::vector<std::string> documentAndBackups(const User& user) {
  std::vector<std::string> texts;
  for (const auto& entry : fs::directory_iterator(user.document().parent_path())) {
    if (entry.path().extension() == ".json") texts.push_back(readFile(entry.path()));
  }
  return texts;
}

TEST(CutWriting, StartKeepsAnUnreadableDocument) {
  const std::string broken(100'000, '{');
  Ending ending = Ending::cut;
  for (int call = 1; ending == Ending::cut; ++call) {
    SCOPED_TRACE(call);
    User user;
    writeFile(user.document(), broken);
    ending = runUntilCall(call, [&] { user.start(); });
    const auto texts = documentAndBackups(user);
    ASSERT_THAT(texts, testing::Contains(broken));
    if (ending == Ending::completed) {
      EXPECT_THAT(texts, testing::SizeIs(2));
    }
  }
}

TEST(FailedWriting, StartKeepsAnUnreadableDocument) {
  for (const std::string call : {"create", "write", "fsync file", "rename"}) {
    User user;
    putLinkedDocument(user, "{broken");
    SystemCallSpy spy(call, ENOSPC);
    spy.failuresLeft = 1;  // of the copy
    user.start();
    EXPECT_THAT(documentAndBackups(user), testing::SizeIs(2)) << call;
    EXPECT_THAT(documentAndBackups(user), testing::Contains("{broken")) << call;
    EXPECT_THAT(user.log.lines,
                testing::Contains(testing::Field(&FakeLog::Line::text, testing::HasSubstr("No space left"))))
        << call;
  }
}

TEST(FailedWriting, SaveKeepsAnEditByHand) {
  for (const std::string call : {"create", "write", "fsync file", "rename"}) {
    User user;
    putLinkedDocument(user, R"({"menus": []})");
    user.start();
    writeFile(user.document(), "{edited");
    {
      SystemCallSpy spy(call, ENOSPC);  // the copy and the save fail
      user.manager->save(user.manager->current());
    }
    EXPECT_THAT(documentAndBackups(user), testing::ElementsAre("{edited", "{edited")) << call;
    user.manager->writeAgain();
    EXPECT_THAT(documentAndBackups(user), testing::AllOf(testing::SizeIs(2), testing::Contains("{edited"))) << call;
    EXPECT_THAT(readFile(user.document()), testing::StartsWith("{\n  \"schemaVersion\"")) << call;
  }
}

std::string migratedDocument(const std::string& text) {
  return R"({"icon": "/Caches/)" + text + R"(/favicons/)" + std::string(100'000, 'x') + "\"}";
}

void expectWholeOrMissing(const fs::path& path, const std::string& whole) {
  EXPECT_TRUE(!fs::exists(path) || readFile(path) == whole) << path;
}

TEST(CutMigration, CopiesEachFileWholeAndResumesAtTheNextStart) {
  Ending ending = Ending::cut;
  for (int call = 1; ending == Ending::cut; ++call) {
    SCOPED_TRACE(call);
    User user;
    const std::string defaults = "pie.hasSeenPermissionIntro=true\n";
    const fs::path favicons = user.cacheHome() / "Rondora" / "favicons";
    writeFile(user.configHome() / "PieMenu" / "config.json", migratedDocument("PieMenu"));
    writeFile(user.configHome() / "PieMenu" / "defaults", defaults);
    writeFile(user.cacheHome() / "PieMenu" / "favicons" / "a.png", "first");
    writeFile(user.cacheHome() / "PieMenu" / "favicons" / "b" / "c.png", "second");

    ending = runUntilCall(call, [&] { user.migrate(); });
    expectWholeOrMissing(user.document(), migratedDocument("Rondora"));
    expectWholeOrMissing(user.configHome() / "Rondora" / "defaults", defaults);
    EXPECT_EQ(readFile(user.configHome() / "PieMenu" / "config.json"), migratedDocument("PieMenu"));

    user.migrate();
    EXPECT_EQ(readFile(user.document()), migratedDocument("Rondora"));
    EXPECT_EQ(readFile(user.configHome() / "Rondora" / "defaults"), defaults);
    EXPECT_EQ(readFile(favicons / "a.png") + readFile(favicons / "b" / "c.png"), "firstsecond");
  }
}

}  // namespace
}  // namespace rondora::desktop
