#include "platform/linux/evdev/input_trackpads.h"

#include <gtest/gtest.h>

#include "desktop/temporary_folder.h"

namespace rondora::desktop {
namespace {

// Capabilities as the kernel writes them on x86-64.
struct Device {
  std::string keys;
  std::string absolute;
  std::string properties;
};
const Device kTrackpad{"e520 10000 0 0 0 0", "2e0800000000003", "5"};
const Device kTouchScreen{"400 0 0 0 0 0", "260800000000003", "2"};
const Device kPenTablet{"1c03 0 0 0 0 0", "100003", "1"};
const Device kKeyboard{"402000000 3803078f800d001 feffffdfffefffff fffffffffffffffe", "0", "0"};

class InputTrackpadsTest : public testing::Test {
 protected:
  void plugIn(const std::string& name, const Device& device, bool isReadable = true) {
    const auto folder = home.path() / "class" / name / "device";
    writeFile(folder / "capabilities" / "key", device.keys + "\n");
    writeFile(folder / "capabilities" / "abs", device.absolute + "\n");
    writeFile(folder / "properties", device.properties + "\n");
    if (isReadable) writeFile(home.path() / "nodes" / name, "");
  }

  TemporaryFolder home;
  InputTrackpads trackpads{home.path() / "class", home.path() / "nodes"};
};

TEST_F(InputTrackpadsTest, RecognisesTrackpadsAndWhetherTheyAreReadable) {
  EXPECT_EQ(trackpads.access(), TrackpadAccess::none);
  plugIn("event0", kKeyboard, false);
  plugIn("event1", kTouchScreen, false);
  plugIn("event2", kPenTablet, false);
  plugIn("mouse0", kTrackpad, false);
  EXPECT_EQ(trackpads.access(), TrackpadAccess::none);
  plugIn("event3", kTrackpad);
  EXPECT_EQ(trackpads.access(), TrackpadAccess::readable);
  plugIn("event4", kTrackpad, false);
  EXPECT_EQ(trackpads.access(), TrackpadAccess::unreadable);
}

}  // namespace
}  // namespace rondora::desktop
