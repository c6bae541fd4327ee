#include "platform/linux/desktop/session_permissions.h"

#include <gtest/gtest.h>
#include <poll.h>

#include "desktop/temporary_folder.h"

namespace rondora::desktop {
namespace {

struct SomeTrackpads final : Trackpads {
  TrackpadAccess access() const override { return state; }
  TrackpadAccess state = TrackpadAccess::none;
};

TEST(SessionPermissions, TellsOfDevicesThatComeAndBecomeReadable) {
  const TemporaryFolder folder;
  const auto devices = folder.path() / "input";
  SomeTrackpads trackpads;
  int descriptor = -1;
  std::function<void()> readable;
  SessionPermissions permissions(
      true, trackpads,
      [&](int watched, std::function<void()> callback) {
        descriptor = watched;
        readable = std::move(callback);
        return Subscription([] {});
      },
      devices);
  int news = 0;
  const auto observer = permissions.onMayHaveChanged([&] { ++news; });
  ASSERT_TRUE(observer);
  const auto isTold = [&] {
    pollfd incoming{descriptor, POLLIN, 0};
    if (::poll(&incoming, 1, 10000) != 1) return false;
    const int before = news;
    readable();
    return news == before + 1;
  };
  writeFile(folder.path() / "another", "");
  EXPECT_FALSE(isTold()) << "not where the devices are";
  std::filesystem::create_directory(devices);
  EXPECT_TRUE(isTold());
  writeFile(devices / "event0", "");
  EXPECT_TRUE(isTold());
  trackpads.state = TrackpadAccess::unreadable;
  EXPECT_TRUE(permissions.preflightListenEventAccess()) << "no trackpad is wanted";
  std::filesystem::permissions(devices / "event0", std::filesystem::perms::owner_read);
  EXPECT_TRUE(isTold());
  const int before = news;
  permissions.wantTrackpads(true);
  EXPECT_FALSE(permissions.preflightListenEventAccess());
  EXPECT_EQ(news, before + 1);
  std::filesystem::remove_all(devices);
  EXPECT_TRUE(isTold());
  std::filesystem::create_directory(devices);
  EXPECT_TRUE(isTold()) << "the folder is back";
}

TEST(SessionPermissions, PromisesNoNewsWithoutAWatch) {
  const SomeTrackpads trackpads;
  const auto watch = [](int, std::function<void()>) { return Subscription([] {}); };
  SessionPermissions permissions(true, trackpads, watch, "/is/missing/input");
  EXPECT_FALSE(permissions.onMayHaveChanged([] {}));
}

}  // namespace
}  // namespace rondora::desktop
