#include "platform/linux/x11/connection/clipboard_handover.h"

#include <iterator>
#include <utility>

namespace rondora::x11 {
namespace {

/// With the toolkit's end, which follows, one second.
constexpr std::chrono::milliseconds kMaxHandover{700};

}  // namespace

ClipboardHandover::ClipboardHandover(X11Connection& connection)
    : connection_(connection), clipboard_(connection.atom("CLIPBOARD")) {}

ClipboardHandover::~ClipboardHandover() { destroyWindow(); }

bool ClipboardHandover::begin() {
  const xcb_atom_t manager = connection_.atom("CLIPBOARD_MANAGER");
  if (!isOurs() || ownerOf(manager) == XCB_WINDOW_NONE) return false;
  eventHandler_ = connection_.addEventHandler([this](const xcb_generic_event_t& event) { return handleEvent(event); });
  xcb_connection_t* xcb = connection_.get();
  window_ = xcb_generate_id(xcb);
  xcb_create_window(xcb, 0, window_, connection_.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, 0, nullptr);
  // Name the targets: some managers save nothing otherwise.
  const xcb_atom_t targets[] = {connection_.atom("UTF8_STRING"), connection_.atom("text/plain;charset=utf-8"),
                                connection_.atom("text/plain"), XCB_ATOM_STRING};
  const xcb_atom_t property = connection_.atom("RONDORA_SAVE_TARGETS");
  xcb_change_property(xcb, XCB_PROP_MODE_REPLACE, window_, property, XCB_ATOM_ATOM, 32,
                      static_cast<std::uint32_t>(std::size(targets)), targets);
  xcb_convert_selection(xcb, window_, manager, connection_.atom("SAVE_TARGETS"), property, connection_.lastEventTime());
  connection_.flush();
  return true;
}

bool ClipboardHandover::hasEnded() const { return isRefused_ || (window_ == XCB_WINDOW_NONE && !isOurs()); }

bool ClipboardHandover::isOurs() const {
  const xcb_setup_t& setup = *xcb_get_setup(connection_.get());
  const xcb_window_t owner = ownerOf(clipboard_);
  return owner != XCB_WINDOW_NONE && (owner & ~setup.resource_id_mask) == setup.resource_id_base;
}

xcb_window_t ClipboardHandover::ownerOf(xcb_atom_t selection) const {
  xcb_connection_t* xcb = connection_.get();
  const Reply<xcb_get_selection_owner_reply_t> owner(
      xcb_get_selection_owner_reply(xcb, xcb_get_selection_owner(xcb, selection), nullptr));
  return owner ? owner->owner : static_cast<xcb_window_t>(XCB_WINDOW_NONE);
}

bool ClipboardHandover::handleEvent(const xcb_generic_event_t& event) {
  if ((event.response_type & 0x7F) != XCB_SELECTION_NOTIFY) return false;
  const auto& answer = reinterpret_cast<const xcb_selection_notify_event_t&>(event);
  if (window_ == XCB_WINDOW_NONE || answer.requestor != window_) return false;
  isRefused_ = answer.property == XCB_ATOM_NONE;
  destroyWindow();
  return true;
}

void ClipboardHandover::destroyWindow() {
  if (window_ == XCB_WINDOW_NONE) return;
  xcb_destroy_window(connection_.get(), std::exchange(window_, XCB_WINDOW_NONE));
  connection_.flush();
}

void handOverClipboard(X11Connection& connection, const HandleEventsUntil& handleEventsUntil) {
  ClipboardHandover handover(connection);
  if (handover.begin()) handleEventsUntil([&handover] { return handover.hasEnded(); }, kMaxHandover);
}

}  // namespace rondora::x11
