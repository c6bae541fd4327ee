#include "icons/picture_quarantine.h"

#include <gtest/gtest.h>

#include <memory>

#include "doubles/fake_file_system.h"
#include "doubles/fake_web.h"
#include "doubles/virtual_time.h"

namespace rondora {
namespace {

constexpr double kDay = 24.0 * 60 * 60;

class PictureQuarantineTest : public testing::Test {
 protected:
  void restart() {
    pictures = std::make_unique<PictureQuarantine>(PictureQuarantine::Ports{decoder, files, time, time});
  }
  PictureResult::Outcome decode(const std::string& content, const std::string& version) {
    PictureResult result;
    const Subscription decoding = pictures->decode({PictureRequest::Source::imageFile, 48, content, {}, version},
                                                   [&result](const PictureResult& arrived) { result = arrived; });
    time.advance(1);
    return result.outcome;
  }

  VirtualTime time;
  FakeFileSystem files;
  FakePictureDecoder decoder{time};
  std::unique_ptr<PictureQuarantine> pictures;
};

TEST_F(PictureQuarantineTest, FileThatWasGivenUpIsRefusedForAWeek) {
  files.put("/home/user/.cache/Rondora/refused-pictures", "1\n\xFF 3\n");
  for (int start = 0; start < 3; ++start) {
    restart();
    EXPECT_EQ(decode("endless a", "1"), PictureResult::Outcome::gaveUp);
    EXPECT_EQ(decode("picture b", "1"), PictureResult::Outcome::decoded);
    EXPECT_EQ(decode("neither", "1"), PictureResult::Outcome::unreadable);
    EXPECT_EQ(decoder.requests, 1 + 2 * (start + 1));
  }
  decoder.requests = 0;
  EXPECT_EQ(decode("endless a", "2"), PictureResult::Outcome::gaveUp);
  EXPECT_EQ(decoder.requests, 1) << "the file has changed";
  time.advance(8 * kDay);
  decode("endless a", "1");
  EXPECT_EQ(decoder.requests, 2);
}

}  // namespace
}  // namespace rondora
