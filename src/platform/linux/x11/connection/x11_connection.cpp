#include "platform/linux/x11/connection/x11_connection.h"

#include <algorithm>
#include <utility>

#include "platform/linux/x11/connection/property_reply.h"

namespace rondora::x11 {
namespace {

xcb_screen_t* screenNumbered(xcb_connection_t* connection, int number) {
  xcb_screen_iterator_t it = xcb_setup_roots_iterator(xcb_get_setup(connection));
  for (; number > 0 && it.rem > 1; --number) xcb_screen_next(&it);
  return it.data;
}

constexpr std::uint8_t kSentEventBit = 0x80;

}  // namespace

X11Connection::X11Connection(xcb_connection_t* connection, int screenNumber, double pixelsPerPoint)
    : connection_(connection), screen_(screenNumbered(connection, screenNumber)), pixelsPerPoint_(pixelsPerPoint) {}

xcb_atom_t X11Connection::atom(std::string_view name) const {
  if (const auto found = atoms_.find(name); found != atoms_.end()) return found->second;
  internAtoms({name});
  const auto found = atoms_.find(name);
  return found == atoms_.end() ? static_cast<xcb_atom_t>(XCB_ATOM_NONE) : found->second;
}

void X11Connection::internAtoms(const std::vector<std::string_view>& names) const {
  std::vector<xcb_intern_atom_cookie_t> cookies;
  cookies.reserve(names.size());
  for (const std::string_view name : names) {
    cookies.push_back(xcb_intern_atom(connection_, 0, static_cast<std::uint16_t>(name.size()), name.data()));
  }
  for (std::size_t i = 0; i < names.size(); ++i) {
    const Reply<xcb_intern_atom_reply_t> reply(xcb_intern_atom_reply(connection_, cookies[i], nullptr));
    if (reply) atoms_[std::string(names[i])] = reply->atom;
  }
}

Subscription X11Connection::addEventHandler(EventHandler handler) { return handlers_.add(std::move(handler)); }

bool X11Connection::dispatch(const xcb_generic_event_t& event) {
  noteTime(event);
  return handlers_.offer(event);
}

void X11Connection::noteTime(const xcb_generic_event_t& event) {
  switch (event.response_type & ~kSentEventBit) {
    case XCB_KEY_PRESS:
    case XCB_KEY_RELEASE:
    case XCB_BUTTON_PRESS:
    case XCB_BUTTON_RELEASE:
    case XCB_MOTION_NOTIFY:
      // These five have the same leading fields.
      lastEventTime_ = reinterpret_cast<const xcb_key_press_event_t&>(event).time;
      break;
    case XCB_PROPERTY_NOTIFY:
      lastEventTime_ = reinterpret_cast<const xcb_property_notify_event_t&>(event).time;
      break;
    default:
      break;
  }
}

void X11Connection::selectRootEvents(std::uint32_t eventMask) {
  rootEventMask() |= eventMask;
  applyRootEventMask();
}

Subscription X11Connection::selectRootEventsTemporarily(std::uint32_t eventMask) {
  temporaryMasks_.push_back(eventMask);
  applyRootEventMask();
  return Subscription([this, eventMask] {
    temporaryMasks_.erase(std::find(temporaryMasks_.begin(), temporaryMasks_.end(), eventMask));
    applyRootEventMask();
  });
}

// Read at the first use: by then the toolkit has made its selection.
std::uint32_t& X11Connection::rootEventMask() {
  if (!rootEventMask_) {
    const auto cookie = xcb_get_window_attributes(connection_, root());
    const Reply<xcb_get_window_attributes_reply_t> reply(xcb_get_window_attributes_reply(connection_, cookie, nullptr));
    rootEventMask_ = reply ? reply->your_event_mask : 0;
  }
  return *rootEventMask_;
}

void X11Connection::applyRootEventMask() {
  std::uint32_t mask = rootEventMask();
  for (const std::uint32_t temporary : temporaryMasks_) mask |= temporary;
  xcb_change_window_attributes(connection_, root(), XCB_CW_EVENT_MASK, &mask);
}

/// Null when the property is missing or of another type.
Reply<xcb_get_property_reply_t> X11Connection::propertyReply(xcb_window_t window, xcb_atom_t name,
                                                             xcb_atom_t type) const {
  constexpr std::uint32_t kMaxLength = 4 << 20;  // in 32-bit units: 16 MiB, more than any icon
  const auto cookie = xcb_get_property(connection_, 0, window, name, type, 0, kMaxLength);
  Reply<xcb_get_property_reply_t> reply(xcb_get_property_reply(connection_, cookie, nullptr));
  const bool isWanted = reply && reply->type != XCB_ATOM_NONE && (type == XCB_ATOM_ANY || reply->type == type);
  return isWanted ? std::move(reply) : nullptr;
}

std::optional<std::vector<std::uint8_t>> X11Connection::property(xcb_window_t window, xcb_atom_t name,
                                                                 xcb_atom_t type) const {
  const auto reply = propertyReply(window, name, type);
  if (!reply) return std::nullopt;
  const auto* bytes = static_cast<const std::uint8_t*>(xcb_get_property_value(reply.get()));
  const auto length = static_cast<std::size_t>(xcb_get_property_value_length(reply.get()));
  return std::vector<std::uint8_t>(bytes, bytes + length);
}

std::vector<std::uint32_t> X11Connection::property32(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const {
  const auto reply = propertyReply(window, name, type);
  const auto values = values32(reply.get());
  return {values.begin(), values.end()};
}

void X11Connection::sendToRoot(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]) const {
  xcb_client_message_event_t message{};
  message.response_type = XCB_CLIENT_MESSAGE;
  message.format = 32;
  message.window = window;
  message.type = type;
  std::copy(std::begin(data), std::end(data), std::begin(message.data.data32));
  xcb_send_event(connection_, 0, root(), XCB_EVENT_MASK_SUBSTRUCTURE_NOTIFY | XCB_EVENT_MASK_SUBSTRUCTURE_REDIRECT,
                 reinterpret_cast<const char*>(&message));
}

}  // namespace rondora::x11
