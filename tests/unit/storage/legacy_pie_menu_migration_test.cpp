#include "storage/legacy_pie_menu_migration.h"

#include <gmock/gmock.h>

#include "doubles/fake_file_system.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "doubles/fake_user_defaults.h"

namespace rondora {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

class LegacyPieMenuMigrationTest : public testing::Test {
 protected:
  void run() { LegacyPieMenuMigration({files, defaults, environment, log}).run(); }

  FakeFileSystem files;
  FakeUserDefaults defaults;
  FakeProcessEnvironment environment;
  FakeLog log;
  const std::string oldConfig = "/home/user/.config/PieMenu/config.json";
  const std::string newConfig = "/home/user/.config/Rondora/config.json";
  const std::string oldFavicon = "/home/user/.cache/PieMenu/favicons/a.png";
  const std::string newFavicon = "/home/user/.cache/Rondora/favicons/a.png";
};

TEST_F(LegacyPieMenuMigrationTest, CarriesEverythingOverOnce) {
  run();
  EXPECT_THAT(files.changes, IsEmpty()) << "there is no predecessor";
  defaults.predecessor = {{"pie.hasSeenPermissionIntro", true}};
  files.put(oldFavicon, "png");
  files.put(oldConfig, R"({"a":"/Caches/PieMenu/favicons/1","b":"Caches\/PieMenu\/favicons\/2","c":"PieMenu/favicons",)"
                       R"("d":"/home/user/.cache/PieMenu/favicons/a.png",)"
                       R"("e":"\/home\/user\/.cache\/PieMenu\/favicons\/b"} no JSON)");
  run();
  EXPECT_TRUE(defaults.boolean("pie.hasSeenPermissionIntro"));
  EXPECT_EQ(files.files[newFavicon], "png");
  const std::string carriedOver = files.files[newConfig];
  EXPECT_EQ(carriedOver,
            R"({"a":"/Caches/Rondora/favicons/1","b":"Caches\/Rondora\/favicons\/2","c":"PieMenu/favicons",)"
            R"("d":"/home/user/.cache/Rondora/favicons/a.png",)"
            R"("e":"\/home\/user\/.cache\/Rondora\/favicons\/b"} no JSON)");

  files.files[oldConfig] = "changed";
  files.changes.clear();
  run();
  EXPECT_EQ(files.files[newConfig], carriedOver);
  EXPECT_THAT(files.changes, IsEmpty());
  EXPECT_THAT(log.lines, IsEmpty());
}

TEST_F(LegacyPieMenuMigrationTest, LeavesWhatIsThereAlready) {
  defaults.values = {{"NSInitialToolTipDelay", std::int64_t{500}}};
  defaults.predecessor = {{"pie.hasSeenPermissionIntro", true}};
  files.put(oldFavicon, "old");
  files.put("/home/user/.cache/Rondora/favicons/b.png", "new");
  files.put(oldConfig, "old");
  files.put(newConfig, "new");
  run();
  EXPECT_FALSE(defaults.hasValue("pie.hasSeenPermissionIntro"));
  EXPECT_FALSE(files.exists(newFavicon));
  EXPECT_EQ(files.files[newConfig], "new");

  defaults.values.clear();
  environment.identifier = "io.github.rondora.PieMenu";
  run();
  EXPECT_TRUE(defaults.isEmpty()) << "the predecessor itself is running";
}

TEST_F(LegacyPieMenuMigrationTest, LogsWhyTheDocumentCouldNotBeCarriedOver) {
  using Operation = FakeFileSystem::Operation;
  files.put(oldConfig, "{\"\xFF\"}");
  run();
  EXPECT_EQ(log.lines.at(0).text, "legacy config migration failed: " + oldConfig + " is not UTF-8 text");
  files.files[oldConfig] = "{}";
  const std::pair<Operation, std::string> failures[] = {{Operation::read, "cannot read " + oldConfig},
                                                        {Operation::createFolder, "no room"},
                                                        {Operation::replaceDurably, "disk full"}};
  for (const auto& [operation, text] : failures) {
    log.lines.clear();
    files.failures = {{operation, text}};
    run();
    EXPECT_THAT(log.lines, ElementsAre(FakeLog::Line{LogLevel::error, "legacy config migration failed: " + text}));
    EXPECT_FALSE(files.files.contains(newConfig));
    EXPECT_EQ(files.files[oldConfig], "{}");
  }
}

TEST_F(LegacyPieMenuMigrationTest, FaviconsThatCannotBeCopiedDoNotMatter) {
  files.put(oldFavicon, "png");
  files.put(oldConfig, "{}");
  files.failures = {{FakeFileSystem::Operation::copy, "no"}};
  run();
  EXPECT_EQ(files.files[newConfig], "{}");
  EXPECT_THAT(log.lines, IsEmpty());
}

}  // namespace
}  // namespace rondora
