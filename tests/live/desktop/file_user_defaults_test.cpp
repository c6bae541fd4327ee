#include "platform/linux/desktop/file_user_defaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/temporary_folder.h"
#include "doubles/fake_log.h"
#include "doubles/fake_session.h"
#include "platform/posix/posix_file_system.h"

namespace rondora::desktop {
namespace {

class FileUserDefaultsTest : public testing::Test {
 protected:
  FileUserDefaultsTest() { environment_.variables = {{"HOME", "/"}, {"XDG_CONFIG_HOME", folder_.path().string()}}; }

  std::filesystem::path file(const char* folder) const { return folder_.path() / folder / "defaults"; }

  TemporaryFolder folder_;
  FakeProcessEnvironment environment_;
  FakeLog log_;
};

TEST_F(FileUserDefaultsTest, AnotherStartFindsWhatWasSet) {
  PosixFileSystem files(environment_);
  {
    FileUserDefaults defaults(files, log_);
    EXPECT_TRUE(defaults.isEmpty());
    defaults.setBoolean("pie.hasSeenPermissionIntro", true);
    defaults.setBoolean("other", false);
    defaults.setInteger("NSInitialToolTipDelay", -120);
  }
  const FileUserDefaults defaults(files, log_);
  EXPECT_FALSE(defaults.isEmpty());
  EXPECT_TRUE(defaults.boolean("pie.hasSeenPermissionIntro"));
  EXPECT_TRUE(defaults.hasValue("other") && !defaults.boolean("other"));
  EXPECT_FALSE(defaults.hasValue("pie"));
  EXPECT_EQ(readFile(file("Rondora")), "NSInitialToolTipDelay=-120\nother=false\npie.hasSeenPermissionIntro=true\n");
}

TEST_F(FileUserDefaultsTest, ReadsAFileThatSomebodyElseWrote) {
  writeFile(file("Rondora"), "\n=nothing\nno sign\nstrange=a=b\nseen=true");
  PosixFileSystem files(environment_);
  FileUserDefaults defaults(files, log_);
  EXPECT_TRUE(defaults.boolean("seen"));
  EXPECT_FALSE(defaults.boolean("strange"));
  defaults.setBoolean("seen", false);
  EXPECT_EQ(readFile(file("Rondora")), "seen=false\nstrange=a=b\n");
}

TEST_F(FileUserDefaultsTest, TakesOverThePredecessorsValuesOnlyWhereThereAreAny) {
  PosixFileSystem files(environment_);
  FileUserDefaults defaults(files, log_);
  EXPECT_FALSE(defaults.importPredecessorDomain());
  writeFile(file("PieMenu"), "\n");
  EXPECT_FALSE(defaults.importPredecessorDomain());
  EXPECT_FALSE(std::filesystem::exists(file("Rondora")));

  writeFile(file("PieMenu"), "pie.hasSeenPermissionIntro=true\n");
  EXPECT_TRUE(defaults.importPredecessorDomain());
  EXPECT_TRUE(defaults.boolean("pie.hasSeenPermissionIntro"));
}

TEST_F(FileUserDefaultsTest, AFileThatCannotBeWrittenIsLoggedAndTheValueHoldsForThisRun) {
  writeFile(folder_.path() / "Rondora", "a file where the folder should be");
  PosixFileSystem files(environment_);
  FileUserDefaults defaults(files, log_);
  defaults.setBoolean("seen", true);
  EXPECT_TRUE(defaults.boolean("seen"));
  ASSERT_EQ(log_.lines.size(), 1U);
  EXPECT_THAT(log_.lines[0].text, testing::HasSubstr("Not a directory"));
}

}  // namespace
}  // namespace rondora::desktop
