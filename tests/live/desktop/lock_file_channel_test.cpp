#include "platform/linux/desktop/lock_file_channel.h"

#include <gtest/gtest.h>
#include <poll.h>

#include <future>
#include <memory>

#include "desktop/temporary_folder.h"
#include "doubles/fake_session.h"

namespace rondora::desktop {
namespace {

using Claim = InstanceChannel::Claim;
namespace fs = std::filesystem;

class LockFileChannelTest : public testing::Test {
 protected:
  /// `fallback`, if given, replaces XDG_RUNTIME_DIR.
  std::unique_ptr<LockFileChannel> channel(const std::string& display = ":7", const fs::path& fallback = {}) {
    FakeProcessEnvironment environment;
    environment.variables["DISPLAY"] = display;
    if (fallback.empty()) environment.variables["XDG_RUNTIME_DIR"] = folder_.path().string();
    return std::make_unique<LockFileChannel>(environment, fallback,
                                             [this](int descriptor, std::function<void()> readable) {
                                               listener_ = descriptor;
                                               readable_ = std::move(readable);
                                               return Subscription([this] { listener_ = -1; });
                                             });
  }
  /// Another instance requests the settings while the holder runs its main loop.
  bool isShownOnRequest(LockFileChannel& holder) {
    bool isShown = false;
    holder.serve({[&] { isShown = true; }, {}, {}});
    auto answer = std::async(std::launch::async, [other = channel()] { return other->askForSettings(); });
    pollfd incoming{listener_, POLLIN, 0};
    if (::poll(&incoming, 1, 10000) == 1) readable_();
    return answer.get() && isShown;
  }

  TemporaryFolder folder_;
  int listener_ = -1;
  std::function<void()> readable_;
};

TEST_F(LockFileChannelTest, OneInstanceHoldsTheDisplayUntilRelease) {
  auto holder = channel();
  ASSERT_EQ(holder->claim(), Claim::first);
  EXPECT_EQ(holder->claim(), Claim::first);
  EXPECT_EQ(channel()->claim(), Claim::taken);
  EXPECT_EQ(channel("unix:7.1")->claim(), Claim::taken) << "another screen of the same display";
  EXPECT_EQ(channel(":8")->claim(), Claim::first);
  EXPECT_EQ(channel("far/away:7")->claim(), Claim::first);
  EXPECT_TRUE(isShownOnRequest(*holder));
  holder->release();
  EXPECT_FALSE(channel()->askForSettings());
  auto next = channel();
  EXPECT_EQ(next->claim(), Claim::first);
  EXPECT_TRUE(isShownOnRequest(*next));
}

TEST_F(LockFileChannelTest, OnlyTheUserCanReachIt) {
  const auto holder = channel();
  ASSERT_EQ(holder->claim(), Claim::first);
  for (const auto& entry : fs::directory_iterator(folder_.path())) {
    const auto othersMay = fs::perms::group_all | fs::perms::others_all;
    EXPECT_EQ(entry.status().permissions() & othersMay, fs::perms::none) << entry.path();
  }
  fs::create_symlink("elsewhere", folder_.path() / "rondora-:9.lock");
  EXPECT_EQ(channel(":9")->claim(), Claim::unavailable);
  EXPECT_FALSE(fs::exists(folder_.path() / "elsewhere"));
}

TEST_F(LockFileChannelTest, UnavailableWithoutAWritableFolder) {
  EXPECT_EQ(channel(":7", "/proc/nowhere")->claim(), Claim::unavailable);
  EXPECT_EQ(channel(":7", folder_.path() / std::string(120, 'x'))->claim(), Claim::unavailable)
      << "longer than a socket's address";
  EXPECT_EQ(channel(":7", folder_.path() / "made")->claim(), Claim::first);
}

}  // namespace
}  // namespace rondora::desktop
