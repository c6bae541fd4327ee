#include "platform/linux/x11/connection/selection_owner_watch.h"

#include <xcb/xfixes.h>

#include <string>
#include <utility>

namespace rondora::x11 {
namespace {

int screenNumber(const X11Connection& connection) {
  int number = 0;
  for (auto it = xcb_setup_roots_iterator(xcb_get_setup(connection.get())); it.rem > 0; xcb_screen_next(&it)) {
    if (it.data->root == connection.root()) return number;
    ++number;
  }
  return 0;
}

}  // namespace

SelectionOwnerWatch::SelectionOwnerWatch(X11Connection& connection, std::string_view name)
    : connection_(connection),
      selection_(connection.atom(std::string(name) + "_S" + std::to_string(screenNumber(connection)))) {
  selectOwnerChanges();
  xcb_connection_t* xcb = connection.get();
  const Reply<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection_), nullptr));
  hasOwner_ = owner && owner->owner != XCB_WINDOW_NONE;
  eventHandler_ = connection.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
}

void SelectionOwnerWatch::selectOwnerChanges() {
  xcb_connection_t* xcb = connection_.get();
  const xcb_query_extension_reply_t* extension = xcb_get_extension_data(xcb, &xcb_xfixes_id);
  if (extension == nullptr || !extension->present) return;
  const Reply<xcb_xfixes_query_version_reply_t> version(
      xcb_xfixes_query_version_reply(xcb, xcb_xfixes_query_version(xcb, 5, 0), nullptr));
  ownerChangeEvent_ = static_cast<std::uint8_t>(extension->first_event + XCB_XFIXES_SELECTION_NOTIFY);
  // On a window of our own: on the root window the toolkit has its own selection.
  const xcb_window_t window = xcb_generate_id(xcb);
  xcb_create_window(xcb, 0, window, connection_.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, 0, nullptr);
  xcb_xfixes_select_selection_input(xcb, window, selection_,
                                    XCB_XFIXES_SELECTION_EVENT_MASK_SET_SELECTION_OWNER |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_WINDOW_DESTROY |
                                        XCB_XFIXES_SELECTION_EVENT_MASK_SELECTION_CLIENT_CLOSE);
}

bool SelectionOwnerWatch::handleEvent(const xcb_generic_event_t& event) {
  if (ownerChangeEvent_ == 0 || (event.response_type & 0x7F) != ownerChangeEvent_) return false;
  const auto& change = reinterpret_cast<const xcb_xfixes_selection_notify_event_t&>(event);
  if (change.selection != selection_) return false;
  const bool hasOwner =
      change.subtype == XCB_XFIXES_SELECTION_EVENT_SET_SELECTION_OWNER && change.owner != XCB_WINDOW_NONE;
  if (std::exchange(hasOwner_, hasOwner) != hasOwner) changed_.send();
  return false;
}

}  // namespace rondora::x11
