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
  keyWatchers_ = buttonWatchers_ = 0;
  select();
}

Subscription RawKeyReleases::watch(CallbackList<xcb_keycode_t>::Callback observer) {
  return counted(keyWatchers_, releases_.add(std::move(observer)));
}

Subscription RawKeyReleases::watchButtons(Signal<std::uint32_t>::Slot observer) {
  return counted(buttonWatchers_, buttonPresses_.subscribe(std::move(observer)));
}

Subscription RawKeyReleases::counted(int& watchers, Subscription entry) {
  ++watchers;
  select();
  return Subscription([this, &watchers, entry = std::make_shared<Subscription>(std::move(entry))] {
    entry->reset();
    --watchers;
    select();
  });
}

// An event carries the number of the latest request that the server has handled: another request follows, so that the
// user's next events differ.
void RawKeyReleases::disown(std::uint32_t request) {
  disowned_[nextDisowned_++ % disowned_.size()] = request;
  xcb_no_operation(connection_.get());
}

bool RawKeyReleases::handleEvent(const xcb_generic_event_t& event) const {
  if ((event.response_type & 0x7F) != XCB_GE_GENERIC) return false;
  const auto& raw = reinterpret_cast<const xcb_input_raw_key_release_event_t&>(event);
  if (raw.extension != inputExtension_) return false;
  if (raw.event_type == XCB_INPUT_RAW_BUTTON_PRESS) buttonPresses_.send(raw.detail);
  const bool isRelease = raw.event_type == XCB_INPUT_RAW_KEY_RELEASE;
  if (isRelease && !isDisowned(event) && raw.detail <= std::numeric_limits<xcb_keycode_t>::max()) {
    releases_.offer(static_cast<xcb_keycode_t>(raw.detail));
  }
  return false;
}

// A request replaces what this client selected before for the same device number. The toolkit, on the same connection,
// selects for all devices; for the master devices no other code does.
void RawKeyReleases::select() {
  std::uint32_t mask = 0;
  if (keyWatchers_ > 0) mask |= XCB_INPUT_XI_EVENT_MASK_RAW_KEY_RELEASE;
  if (buttonWatchers_ > 0) mask |= XCB_INPUT_XI_EVENT_MASK_RAW_BUTTON_PRESS;
  if (inputExtension_ == 0 || std::exchange(selected_, mask) == mask) return;
  struct {
    xcb_input_event_mask_t head{XCB_INPUT_DEVICE_ALL_MASTER, 1};
    std::uint32_t mask;
  } selection{.mask = mask};
  xcb_input_xi_select_events(connection_.get(), connection_.root(), 1, &selection.head);
  connection_.flush();
}

}  // namespace rondora::x11
