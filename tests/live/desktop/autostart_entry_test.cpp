#include "platform/linux/desktop/autostart_entry.h"

#include <gio/gdesktopappinfo.h>
#include <gmock/gmock.h>

#include "desktop/temporary_folder.h"
#include "doubles/fake_session.h"
#include "platform/linux/desktop/xdg_folders.h"

namespace rondora::desktop {
namespace {

using testing::HasSubstr;

class AutostartEntryTest : public testing::Test {
 protected:
  AutostartEntryTest() {
    environment.variables["XDG_CONFIG_HOME"] = (folder.path() / "config").string();
    environment.variables["XDG_CONFIG_DIRS"] = (folder.path() / "xdg").string();
    writeFile(program, "");
    std::filesystem::permissions(program, std::filesystem::perms::owner_all);
  }
  AutostartEntry entry() { return AutostartEntry(environment, files, program); }
  std::filesystem::path file(const std::string& base) const {
    return folder.path() / base / "autostart/io.github.rondora.Rondora.desktop";
  }

  TemporaryFolder folder;
  const std::filesystem::path program = folder.path() / R"(a "b" $c/rondora)";
  FakeProcessEnvironment environment;
  PosixFileSystem files{PosixFileSystem::Folders{}};
};

TEST_F(AutostartEntryTest, SwitchedOnAndOffItsStateIsReadFromTheFile) {
  EXPECT_FALSE(entry().isListed());
  ASSERT_EQ(entry().add(), std::nullopt);
  EXPECT_TRUE(entry().isListed());
  const std::string text = readFile(file("config"));
  EXPECT_THAT(text, HasSubstr(R"(/a \\"b\\" \\$c/rondora")"));
  for (const char* const off : {"Hidden=true\n", "X-GNOME-Autostart-enabled=false\n", "OnlyShowIn=Another;\n",
                                "TryExec=/is/missing\n", "Exec=/is/missing\n"}) {
    writeFile(file("config"), text + off + "X-KDE-Mine=yes\n");
    EXPECT_FALSE(entry().isListed()) << off;
    ASSERT_EQ(entry().add(), std::nullopt);
    EXPECT_TRUE(entry().isListed()) << off;
    EXPECT_THAT(readFile(file("config")), HasSubstr("X-KDE-Mine=yes")) << "the user's own line";
  }
  ASSERT_EQ(AutostartEntry(environment, files, "/is/missing/100%").add(), std::nullopt);
  EXPECT_THAT(readFile(file("config")), HasSubstr("100%%"));
  EXPECT_FALSE(entry().isListed()) << "its program is missing";
  ASSERT_EQ(entry().remove(), std::nullopt);
  ASSERT_EQ(entry().remove(), std::nullopt);
  EXPECT_FALSE(std::filesystem::exists(file("config")));
}

TEST_F(AutostartEntryTest, HidesTheSystemsEntryAndReportsFailures) {
  writeFile(file("xdg"), "[Desktop Entry]\nType=Application\nName=Rondora\nExec=sh\n");
  EXPECT_TRUE(entry().isListed());
  ASSERT_EQ(entry().remove(), std::nullopt);
  EXPECT_FALSE(entry().isListed());
  ASSERT_EQ(entry().add(), std::nullopt);
  EXPECT_TRUE(entry().isListed());
  std::filesystem::remove_all(file("config").parent_path());
  writeFile(file("config").parent_path(), "a file in the place of the folder");
  EXPECT_NE(entry().add(), std::nullopt);
}

}  // namespace
}  // namespace rondora::desktop
