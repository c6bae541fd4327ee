#include "platform/linux/desktop/file_user_defaults.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "desktop/temporary_folder.h"
#include "doubles/fake_log.h"
#include "platform/posix/posix_file_system.h"

namespace rondora::desktop {
namespace {

class FileUserDefaultsTest : public testing::Test {
 protected:
  std::filesystem::path file(const char* folder) const { return folder_.path() / folder / "defaults"; }

  TemporaryFolder folder_;
  PosixFileSystem files_{{.applicationSupport = folder_.path(), .caches = folder_.path()}};
  FakeLog log_;
};

TEST_F(FileUserDefaultsTest, KeepsValuesAndForeignLinesAcrossStarts) {
  EXPECT_TRUE(FileUserDefaults(files_, log_).isEmpty());
  writeFile(file("Rondora"), "\n=nothing\nno sign\nstrange=a=b\nseen=true");
  FileUserDefaults first(files_, log_);
  EXPECT_TRUE(first.boolean("seen"));
  EXPECT_FALSE(first.boolean("strange"));
  first.setBoolean("seen", false);
  first.setBoolean("other", true);
  first.setInteger("NSInitialToolTipDelay", -120);
  first.setString("list", "[{x=y}]");
  EXPECT_EQ(readFile(file("Rondora")),
            "NSInitialToolTipDelay=-120\nlist=[{x=y}]\nother=true\nseen=false\nstrange=a=b\n");
  const FileUserDefaults second(files_, log_);
  EXPECT_FALSE(second.isEmpty());
  EXPECT_TRUE(second.boolean("other"));
  EXPECT_TRUE(second.hasValue("seen") && !second.boolean("seen"));
  EXPECT_EQ(second.string("list"), "[{x=y}]");
  EXPECT_FALSE(second.hasValue("see"));
}

TEST_F(FileUserDefaultsTest, ImportsNothingFromAnEmptyPredecessor) {
  writeFile(file("PieMenu"), "\n");
  EXPECT_FALSE(FileUserDefaults(files_, log_).importDomain({"org.example.PieMenu", "PieMenu"}));
  EXPECT_FALSE(std::filesystem::exists(file("Rondora")));
}

TEST_F(FileUserDefaultsTest, LogsAFailedWriteAndKeepsTheValueForThisRun) {
  writeFile(folder_.path() / "Rondora", "a file instead of the folder");
  FileUserDefaults defaults(files_, log_);
  defaults.setBoolean("seen", true);
  EXPECT_TRUE(defaults.boolean("seen"));
  ASSERT_EQ(log_.lines.size(), 1U);
  EXPECT_THAT(log_.lines[0].text, testing::EndsWith(defaults.problem().value_or("no problem")));
  EXPECT_THAT(log_.lines[0].text, testing::HasSubstr("Not a directory"));
  std::filesystem::remove(folder_.path() / "Rondora");
  defaults.setBoolean("seen", true);
  EXPECT_EQ(defaults.problem(), std::nullopt) << "an equal value is written too";
}

TEST_F(FileUserDefaultsTest, LeavesAFileThatCannotBeReadUntilItCan) {
  const auto path = file("Rondora");
  std::filesystem::create_directories(path);
  FileUserDefaults defaults(files_, log_);
  EXPECT_THAT(defaults.problem().value_or(""), testing::HasSubstr("defaults"));
  EXPECT_FALSE(defaults.isEmpty()) << "nothing may be imported over it";
  defaults.setBoolean("new", true);
  ASSERT_TRUE(std::filesystem::is_directory(path));
  EXPECT_EQ(log_.lines.size(), 1U);
  std::filesystem::remove(path);
  writeFile(path, "old=true\nnew=false\n");
  defaults.setBoolean("new", true);
  EXPECT_EQ(readFile(path), "new=true\nold=true\n");
  EXPECT_EQ(defaults.problem(), std::nullopt);
}

}  // namespace
}  // namespace rondora::desktop
