#include <gmock/gmock.h>
#include <sys/stat.h>

#include <limits>

#include "desktop/temporary_folder.h"
#include "doubles/fake_devices.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/virtual_time.h"
#include "live/desktop/cut_process.h"
#include "platform/linux/desktop/file_user_defaults.h"
#include "platform/posix/posix_file_system.h"
#include "storage/config_manager.h"
#include "storage/legacy_pie_menu_migration.h"

// What is on disk when the program is killed at any point of its writing.

namespace rondora::desktop {
namespace {

namespace fs = std::filesystem;

constexpr int kNever = std::numeric_limits<int>::max();

/// Where flushing costs nothing: the same calls are made, hundreds of times.
fs::path inMemory() { return fs::is_directory("/dev/shm") ? "/dev/shm" : fs::temp_directory_path(); }

/// Folders of a user, empty at first, and the program's storage on them.
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
  PosixFileSystem files{environment};
  VirtualTime time;
  FakeLog log;
  SeededRandom random;
  NotificationCenter notifications;
  std::optional<ConfigManager> manager;
};

enum class Form { file, link };

/// Puts the document there as a file, or as a link to one in another folder.
void putDocument(const User& user, Form form, const std::string& text) {
  const fs::path elsewhere = user.folder.path() / "elsewhere" / "rings.json";
  writeFile(form == Form::link ? elsewhere : user.document(), text);
  if (form == Form::file) return;
  fs::create_directories(user.document().parent_path());
  if (!fs::is_symlink(user.document())) fs::create_symlink("../../elsewhere/rings.json", user.document());
}

class CutWriting : public testing::TestWithParam<Form> {};

INSTANTIATE_TEST_SUITE_P(Forms, CutWriting, testing::Values(Form::file, Form::link),
                         [](const auto& each) { return each.param == Form::file ? "file" : "link"; });

TEST_P(CutWriting, SaveLeavesTheOldOrTheNewDocument) {
  User user;
  putDocument(user, GetParam(), R"({"schemaVersion": 3, "menus": []})");
  user.start();
  const std::string before = readFile(user.document());
  const auto save = [&] {
    PieConfiguration edited = user.manager->current();
    edited.menus[0].name = std::string(100'000, 'E');
    user.manager->save(std::move(edited));
  };
  ASSERT_EQ(runUntilStop(kNever, save), Ending::completed);
  const std::string after = readFile(user.document());
  ASSERT_NE(after, before);

  Ending ending = Ending::cut;
  bool wasThere = false;
  for (int stop = 1; ending == Ending::cut; ++stop) {
    SCOPED_TRACE(stop);
    putDocument(user, GetParam(), before);
    ending = runUntilStop(stop, save);
    const std::string found = readFile(user.document());
    ASSERT_TRUE(found == after || (found == before && !wasThere)) << found.substr(0, 200);
    wasThere = found == after;
    struct stat status {};
    EXPECT_EQ(stat(user.document().c_str(), &status), 0);
    EXPECT_EQ(status.st_mode & 07777, 0600U);
    EXPECT_EQ(fs::is_symlink(user.document()), GetParam() == Form::link);
  }
  EXPECT_TRUE(wasThere);
}

/// The texts of the document and of those that were kept aside.
std::vector<std::string> documentAndBackups(const User& user) {
  std::vector<std::string> texts;
  for (const auto& entry : fs::directory_iterator(user.document().parent_path())) {
    if (entry.path().extension() == ".json") texts.push_back(readFile(entry.path()));
  }
  return texts;
}

TEST_P(CutWriting, StartOnAnUnreadableDocumentLosesNothingOfIt) {
  const std::string broken(100'000, '{');
  Ending ending = Ending::cut;
  for (int stop = 1; ending == Ending::cut; ++stop) {
    SCOPED_TRACE(stop);
    User user;
    putDocument(user, GetParam(), broken);
    ending = runUntilStop(stop, [&] { user.start(); });
    const auto texts = documentAndBackups(user);
    ASSERT_THAT(texts, testing::Contains(broken));
    if (ending == Ending::completed) {
      EXPECT_THAT(texts, testing::SizeIs(2));
    }
  }
}

std::string carriedOverDocument(const std::string& text) {
  return R"({"icon": "/Caches/)" + text + R"(/favicons/)" + std::string(100'000, 'x') + "\"}";
}

/// A text that is missing altogether counts as whole.
void expectWholeOrMissing(const fs::path& path, const std::string& whole) {
  EXPECT_TRUE(!fs::exists(path) || readFile(path) == whole) << path;
}

TEST(CutMigration, CarriesEachThingOverAsAWholeAndGoesOnAtTheNextStart) {
  Ending ending = Ending::cut;
  for (int stop = 1; ending == Ending::cut; ++stop) {
    SCOPED_TRACE(stop);
    User user;
    const std::string defaults = "pie.hasSeenPermissionIntro=true\n";
    const fs::path favicons = user.cacheHome() / "Rondora" / "favicons";
    writeFile(user.configHome() / "PieMenu" / "config.json", carriedOverDocument("PieMenu"));
    writeFile(user.configHome() / "PieMenu" / "defaults", defaults);
    writeFile(user.cacheHome() / "PieMenu" / "favicons" / "a.png", "first");
    writeFile(user.cacheHome() / "PieMenu" / "favicons" / "b" / "c.png", "second");

    ending = runUntilStop(stop, [&] { user.migrate(); });
    expectWholeOrMissing(user.document(), carriedOverDocument("Rondora"));
    expectWholeOrMissing(user.configHome() / "Rondora" / "defaults", defaults);
    EXPECT_EQ(readFile(user.configHome() / "PieMenu" / "config.json"), carriedOverDocument("PieMenu"));

    user.migrate();
    EXPECT_EQ(readFile(user.document()), carriedOverDocument("Rondora"));
    EXPECT_EQ(readFile(user.configHome() / "Rondora" / "defaults"), defaults);
    EXPECT_EQ(readFile(favicons / "a.png") + readFile(favicons / "b" / "c.png"), "firstsecond");
  }
}

}  // namespace
}  // namespace rondora::desktop
