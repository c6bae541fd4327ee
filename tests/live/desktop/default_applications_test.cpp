#include "platform/linux/desktop/default_applications.h"

#include <gio/gio.h>
#include <gtest/gtest.h>

#include "desktop/wait.h"
#include "doubles/fake_session.h"
#include "live/desktop/applications_folder.h"
#include "platform/linux/desktop/url_handlers.h"

namespace rondora::desktop {
namespace {

class DefaultApplicationsTest : public testing::Test {
 protected:
  ~DefaultApplicationsTest() override {
    setDefaults("");
    std::filesystem::remove(applicationsFolder().programs() / "x-terminal-emulator");
  }

  /// Waits until GIO has noticed the new file and has announced it.
  void setDefaults(const std::string& lines) {
    ++generation_;
    const auto version = entries_.version();
    const std::string mark = "application/x-mark-" + std::to_string(generation_);
    applicationsFolder().setDefaults(lines + mark + "=player.desktop\n");
    ASSERT_TRUE(live::waitUntil([&] {
      g_main_context_iteration(nullptr, FALSE);
      return entries_.version() != version && defaults_.handlerOfType(mark.c_str()).has_value();
    }));
  }

  static inline int generation_ = 0;
  FakeProcessEnvironment environment_;
  DesktopEntries entries_;
  DefaultApplications defaults_{entries_, environment_};
};

TEST_F(DefaultApplicationsTest, UsersChoicePrecedesTheFirstOfItsKind) {
  EXPECT_EQ(defaults_.resolve("com.apple.safari"), std::nullopt) << "not a stand-in";
  EXPECT_FALSE(DefaultApplications::isStandIn("com.apple.safari"));
  EXPECT_TRUE(DefaultApplications::isStandIn("com.apple.Terminal"));
  EXPECT_EQ(defaults_.resolve("com.apple.Safari"), "browser");
  EXPECT_EQ(defaults_.resolve("com.apple.finder"), "files");
  EXPECT_EQ(defaults_.resolve("com.apple.Music"), "player");  // neither the hidden one nor the mixer
  EXPECT_EQ(defaults_.resolve("com.apple.Notes"), "org.example.Editor");
  setDefaults(
      "x-scheme-handler/https=plain-viewer.desktop\ninode/directory=org.example.Editor.desktop\n"
      "audio/mpeg=a-mixer.desktop\ntext/plain=in-terminal.desktop\n");
  EXPECT_EQ(defaults_.resolve("com.apple.Safari"), "plain-viewer");
  EXPECT_EQ(defaults_.resolve("com.apple.finder"), "org.example.Editor");
  EXPECT_EQ(defaults_.resolve("com.apple.Music"), "a-mixer");
  EXPECT_EQ(defaults_.resolve("com.apple.Notes"), "in-terminal");
}

TEST_F(DefaultApplicationsTest, TerminalAndSettingsFollowTheDesktop) {
  const auto& folder = applicationsFolder();
  const auto resolved = [this](const char* kind) { return DefaultApplications(entries_, environment_).resolve(kind); };
  EXPECT_EQ(resolved("com.apple.systempreferences"), "xfce-settings-manager") << "not a task of the editor";
  EXPECT_EQ(resolved("com.apple.Terminal"), "xfce4-terminal");  // the only one of the list

  folder.addProgram("terma.wrapper");
  std::filesystem::create_symlink(folder.programs() / "terma.wrapper", folder.programs() / "x-terminal-emulator");
  EXPECT_EQ(resolved("com.apple.Terminal"), "terminal-a");

  environment_.variables["XDG_CURRENT_DESKTOP"] = "Own:XFCE";
  EXPECT_EQ(resolved("com.apple.Terminal"), "xfce4-terminal");
  environment_.variables["XDG_CURRENT_DESKTOP"] = "MATE";
  EXPECT_EQ(resolved("com.apple.Terminal"), "terminal-a");
}

TEST_F(DefaultApplicationsTest, UrlsGoToTheHandlerOfSchemeOrFileType) {
  setDefaults("x-scheme-handler/mailto=org.example.Editor.desktop\ninode/directory=files.desktop\n");
  const UrlHandlers handlers(defaults_);
  const std::string folder = applicationsFolder().path();
  const std::pair<std::string, std::string> cases[] = {
      {"https://example.org/a?b=c#d", "browser"},
      {"HTTP://example.org", "browser"},
      {"https://b\xC3\xBC"
       "cher.example/\xC3\xBC",
       "browser"},
      {"mailto:ada@example.org", "org.example.Editor"},
      {"file://" + folder, "files"},
  };
  for (const auto& [url, handler] : cases) EXPECT_EQ(handlers.handler(url), handler) << url;
  for (const std::string& url : {"file://" + folder + "/missing", folder, std::string("example.org"),
                                 std::string("unknown-scheme:x"), std::string("https://example.org/a b"),
                                 std::string("https://example.org/\n"), std::string("https://[::1"), std::string()}) {
    EXPECT_EQ(handlers.handler(url), std::nullopt) << url;
  }
}

}  // namespace
}  // namespace rondora::desktop
