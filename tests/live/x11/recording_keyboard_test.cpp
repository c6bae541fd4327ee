#include <xcb/xinput.h>

#include "desktop/x_reply.h"
#include "platform/linux/x11/keyboard/x11_recording_keyboard.h"
#include "x11_test.h"

namespace rondora::live {
namespace {

class RecordingKeyboardTest : public X11Test {
 protected:
  /// What this client has selected on the root window, by device number: "0:2048 ".
  std::string selections() {
    const auto reply = ask(connection_.get(), xcb_input_xi_get_selected_events, xcb_input_xi_get_selected_events_reply,
                           connection_.root());
    std::string text;
    for (auto next = xcb_input_xi_get_selected_events_masks_iterator(reply.get()); next.rem > 0;
         xcb_input_event_mask_next(&next)) {
      text += std::to_string(next.data->deviceid) + ":" +
              std::to_string(next.data->mask_len > 0 ? *xcb_input_event_mask_mask(next.data) : 0) + " ";
    }
    return text;
  }

  x11::X11RecordingKeyboard keyboard_{connection_, keys_, rawReleases_};
};

TEST_F(RecordingKeyboardTest, HearsEachClickOnceAndKeepsTheToolkitsSelection) {
  struct {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL, 1};
    std::uint32_t mask = XCB_INPUT_XI_EVENT_MASK_HIERARCHY;
  } toolkit;
  xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &toolkit.head);
  const std::string wanted = selections();
  int clicks = 0;
  auto held = keyboard_.take({.onClick = [&] { ++clicks; }, .onLost = {}});
  ASSERT_TRUE(held);
  user_.click();
  drain();
  EXPECT_EQ(clicks, 1);
  held.reset();
  user_.click();
  drain();
  EXPECT_EQ(clicks, 1);
  EXPECT_THAT(selections(), testing::HasSubstr(wanted));
}

}  // namespace
}  // namespace rondora::live
