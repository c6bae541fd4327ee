#include "platform/posix/posix_file_system.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <cerrno>

#include "desktop/temporary_folder.h"
#include "doubles/fake_session.h"
#include "live/desktop/system_call_spy.h"
#include "platform/linux/desktop/xdg_folders.h"

namespace rondora::desktop {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
namespace fs = std::filesystem;

class PosixFileSystemTest : public testing::Test {
 protected:
  fs::path in(const char* name) const { return folder_.path() / name; }

  std::vector<std::string> namesInFolder() const {
    std::vector<std::string> names;
    for (const auto& entry : fs::directory_iterator(folder_.path())) names.push_back(entry.path().filename());
    std::sort(names.begin(), names.end());
    return names;
  }

  TemporaryFolder folder_;
  PosixFileSystem files_{{.applicationSupport = folder_.path(), .caches = folder_.path()}};
};

TEST(XdgFoldersTest, FollowTheEnvironmentAndIgnoreRelativePaths) {
  FakeProcessEnvironment environment;
  environment.variables = {{"HOME", "/home/ada"}, {"XDG_CONFIG_HOME", "/data/settings"}};
  EXPECT_EQ(xdgFolders(environment).applicationSupport, "/data/settings");
  EXPECT_EQ(xdgFolders(environment).caches, "/home/ada/.cache");
  environment.variables["XDG_CONFIG_HOME"] = "settings";
  environment.variables["XDG_CACHE_HOME"] = "";
  EXPECT_EQ(xdgFolders(environment).applicationSupport, "/home/ada/.config");
  EXPECT_EQ(xdgFolders(environment).caches, "/home/ada/.cache");
}

TEST_F(PosixFileSystemTest, ReplaceFlushesTheFileAndThenTheFolder) {
  std::string bytes;
  for (int i = 0; i < 1000; ++i) bytes += static_cast<char>(i);
  SystemCallSpy spy;
  spy.interruptsWrites = true;
  EXPECT_EQ(files_.replaceDurably(in("config.json"), bytes), std::nullopt);
  EXPECT_THAT(spy.calls, ElementsAre("write", "fsync file", "rename", "fsync folder"));
  EXPECT_EQ(files_.read(in("config.json")), bytes);
}

TEST_F(PosixFileSystemTest, CachesAreReplacedWithoutWaitingForTheDisk) {
  SystemCallSpy spy;
  EXPECT_EQ(files_.replaceCached(in("folder") / "icons" / "index", "new"), std::nullopt);
  EXPECT_THAT(spy.calls, ElementsAre("write", "rename"));
  EXPECT_EQ(files_.read(in("folder") / "icons" / "index"), "new");
}

TEST_F(PosixFileSystemTest, FailedCallsChangeNothing) {
  ASSERT_EQ(files_.replaceDurably(in("config.json"), "old"), std::nullopt);
  for (const std::string call : {"create", "write", "fsync file", "rename"}) {
    SystemCallSpy spy(call, ENOSPC);
    EXPECT_THAT(files_.replaceDurably(in("config.json"), "new").value_or(""), HasSubstr("No space left")) << call;
    EXPECT_THAT(files_.copy(in("config.json"), in("copy")).value_or(""), HasSubstr("No space left")) << call;
    EXPECT_EQ(readFile(in("config.json")), "old") << call;
    EXPECT_THAT(namesInFolder(), ElementsAre("config.json")) << call;
  }
}

TEST_F(PosixFileSystemTest, ToleratesFoldersThatCannotBeFlushed) {
  SystemCallSpy spy("fsync folder", EINVAL);
  EXPECT_EQ(files_.replaceDurably(in("config.json"), "new"), std::nullopt);
  spy.error = EIO;
  EXPECT_THAT(files_.replaceDurably(in("config.json"), "newer").value_or(""), HasSubstr("Input/output error"));
}

TEST_F(PosixFileSystemTest, ReplacesTheTargetOfLinks) {
  fs::create_directory(in("elsewhere"));
  fs::create_symlink("elsewhere/second", in("config.json"));
  fs::create_symlink("real.json", in("elsewhere") / "second");  // dangling
  EXPECT_EQ(files_.replaceDurably(in("config.json"), "new"), std::nullopt);
  EXPECT_EQ(fs::read_symlink(in("config.json")), "elsewhere/second");
  EXPECT_EQ(readFile(in("elsewhere") / "real.json"), "new");
  fs::create_symlink("loop", in("loop"));
  EXPECT_THAT(files_.replaceDurably(in("loop"), "x").value_or(""), HasSubstr("Too many levels of symbolic links"));
}

TEST_F(PosixFileSystemTest, ReplacesRegularFilesOnly) {
  fs::create_directory(in("folder"));
  ASSERT_EQ(mkfifo(in("pipe").c_str(), 0600), 0);
  EXPECT_THAT(files_.replaceDurably(in("folder"), "x").value_or(""), HasSubstr("Is a directory"));
  EXPECT_TRUE(files_.replaceDurably(in("pipe"), "x"));
  EXPECT_TRUE(fs::is_fifo(in("pipe")));
  EXPECT_THAT(files_.replaceDurably(in("missing") / "x", "x").value_or(""), HasSubstr("No such file or directory"));
  EXPECT_THAT(namesInFolder(), ElementsAre("folder", "pipe"));
}

TEST_F(PosixFileSystemTest, ReadsWholeRegularFilesOnly) {
  ASSERT_EQ(mkfifo(in("pipe").c_str(), 0600), 0);
  EXPECT_EQ(files_.read(in("pipe")), std::nullopt);  // without waiting for a writer
  EXPECT_EQ(files_.read(folder_.path()), std::nullopt);
  EXPECT_EQ(files_.read(in("missing")), std::nullopt);
  EXPECT_EQ(files_.read("/dev/zero"), std::nullopt);

  writeFile(in("huge"), "");
  fs::resize_file(in("huge"), PosixFileSystem::kMaxFileSize + 1);
  EXPECT_EQ(files_.read(in("huge")), std::nullopt);
  EXPECT_TRUE(files_.isTooLong(in("huge")));
  EXPECT_FALSE(files_.isTooLong(in("pipe")));
}

TEST_F(PosixFileSystemTest, ListsAndRemovesFilesOnly) {
  files_.replaceDurably(in("b"), "12");
  files_.replaceDurably(in("a"), "1");
  files_.createFolder(in("folder"));
  EXPECT_THAT(files_.filesIn(folder_.path()), ElementsAre(FolderFile{"a", 1}, FolderFile{"b", 2}));
  EXPECT_THAT(files_.filesIn(in("missing")), testing::IsEmpty());
  EXPECT_EQ(files_.remove(in("a")), std::nullopt);
  EXPECT_NE(files_.remove(in("a")), std::nullopt);
  EXPECT_NE(files_.remove(in("folder")), std::nullopt);
  EXPECT_THAT(namesInFolder(), ElementsAre("b", "folder"));
}

TEST_F(PosixFileSystemTest, CreatesFoldersWithTheirParents) {
  SystemCallSpy spy;
  EXPECT_EQ(files_.createFolder(in("a") / "b" / "c"), std::nullopt);
  EXPECT_THAT(spy.calls, ElementsAre("fsync folder"));
  EXPECT_EQ(fs::status(in("a") / "b").permissions(), fs::perms::owner_all);
  fs::create_directory_symlink("a", in("link"));
  EXPECT_EQ(files_.createFolder(in("link") / "b"), std::nullopt);
  writeFile(in("file"), "x");
  EXPECT_THAT(files_.createFolder(in("file")).value_or(""), HasSubstr("Not a directory"));
  EXPECT_THAT(files_.createFolder(in("file") / "below").value_or(""), HasSubstr("Not a directory"));
}

TEST_F(PosixFileSystemTest, CopiesLinkTargetsWithoutOverwriting) {
  writeFile(in("real.json"), "{");
  fs::permissions(in("real.json"), fs::perms::all);
  fs::create_symlink("real.json", in("config.json"));
  SystemCallSpy spy;
  EXPECT_EQ(files_.copy(in("config.json"), in("backup.json")), std::nullopt);
  EXPECT_THAT(spy.calls, ElementsAre("write", "fsync file", "rename", "fsync folder"));
  EXPECT_EQ(files_.keepAs(in("config.json"), in("kept.json")), std::nullopt);
  EXPECT_EQ(files_.replaceDurably(in("config.json"), "new"), std::nullopt);
  EXPECT_EQ(readFile(in("kept.json")), "{");
  for (const char* name : {"backup.json", "kept.json"}) {
    EXPECT_EQ(fs::status(in(name)).permissions(), fs::perms::owner_read | fs::perms::owner_write) << name;
  }
  EXPECT_TRUE(files_.keepAs(in("config.json"), in("backup.json")));
  writeFile(in("config.json"), "other");
  EXPECT_THAT(files_.copy(in("config.json"), in("backup.json")).value_or(""), HasSubstr("File exists"));
  EXPECT_EQ(readFile(in("backup.json")), "{");
  EXPECT_THAT(files_.copy(in("missing"), in("x")).value_or(""), HasSubstr("No such file or directory"));
}

}  // namespace
}  // namespace rondora::desktop
