#include "platform/linux/x11/keyboard/raw_key_releases.h"

#include <xcb/xinput.h>

#include <limits>
#include <utility>

#include "platform/linux/x11/connection/input_extension.h"

namespace rondora::x11 {
RawKeyReleases::RawKeyReleases(X11Connection& connection)
    : connection_(connection), inputExtension_(setUpInputExtension(connection.get())) {
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

RawKeyReleases::~RawKeyReleases() {
  if (watchers_ > 0) select(0);
}

Subscription RawKeyReleases::watch(CallbackList<xcb_keycode_t>::Callback observer) {
  if (watchers_++ == 0) select(XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE);
  return Subscription([this, entry = std::make_shared<Subscription>(releases_.add(std::move(observer)))] {
    entry->reset();
    if (--watchers_ == 0) select(0);
  });
}

bool RawKeyReleases::handleEvent(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC) return false;
  const auto& raw = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
  const bool isRelease = raw.extension == inputExtension_ && raw.event_type == XCB_INPUT_RAW_KEY_RELEASE;
  if (isRelease && !isDisowned(event) && raw.detail <= std::numeric_limits<xcb_keycode_t>::max()) {
    releases_.offer(static_cast<xcb_keycode_t>(raw.detail));
  }
  return false;
}

// No other code selects raw key events of the master devices, so the mask can be replaced.
void RawKeyReleases::select(std::uint32_t mask) const {
  if (inputExtension_ == 0) return;
  struct {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t mask;
  } selection{.mask = mask};
  xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &selection.head);
  connection_.flush();
}

}  // namespace rondora::x11
