#pragma once

#include <xcb/xcb.h>

#include <cstdint>
#include <cstdlib>
#include <map>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "base/observable.h"
#include "base/owned.h"

namespace rondora::x11 {

template <class T>
using Reply = UniqueCPtr<T, std::free>;

/// The X connection shared by the toolkit and all backends: to the server, hot keys, grabs and the overlay are one
/// client's, so that none locks the others out. Does not own the connection. Main thread.
class X11Connection {
 public:
  /// Returns true when it consumed the event, which then reaches neither later handlers nor the toolkit.
  using EventHandler = CallbackList<const xcb_generic_event_t&>::Callback;

  /// `pixelsPerPoint` is the scale factor of the desktop, at least 1; fractions are allowed.
  X11Connection(xcb_connection_t* connection, int screenNumber, double pixelsPerPoint);

  xcb_connection_t* get() const { return connection_; }
  const xcb_screen_t& screen() const { return *screen_; }
  xcb_window_t root() const { return screen_->root; }
  double pixelsPerPoint() const { return pixelsPerPoint_; }
  void flush() const { xcb_flush(connection_); }

  /// The atom of that name, created when missing; cached, so a name costs one round trip once.
  xcb_atom_t atom(std::string_view name) const;
  /// Interns several atoms in one round trip.
  void internAtoms(const std::vector<std::string_view>& names) const;

  /// The handler receives every event of the connection that no earlier handler consumed.
  [[nodiscard]] Subscription addEventHandler(EventHandler handler);
  /// The toolkit's event loop calls it for every event, before it handles the event itself.
  bool dispatch(const xcb_generic_event_t& event);

  /// Adds events to the connection's selection on the root window; keeps what the toolkit selected.
  void selectRootEvents(std::uint32_t eventMask);
  /// As selectRootEvents, for the life of the subscription, which must end before the connection. Only the first call
  /// makes a round trip.
  [[nodiscard]] Subscription selectRootEventsTemporarily(std::uint32_t eventMask);

  /// The server time of the last event that carried one, for requests that must name the time of the event behind them.
  xcb_timestamp_t lastEventTime() const { return lastEventTime_; }
  /// For events of extensions, which `dispatch` does not know.
  void noteEventTime(xcb_timestamp_t time) { lastEventTime_ = time; }

  /// The whole value of the property; nothing when it is missing or of another type (XCB_ATOM_ANY accepts all).
  std::optional<std::vector<std::uint8_t>> property(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const;
  /// A list of 32-bit values (windows, atoms, cardinals); empty when missing.
  std::vector<std::uint32_t> property32(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const;
  /// Sends a client message of format 32 to the root window, as window managers expect it.
  void sendToRoot(xcb_window_t window, xcb_atom_t type, const std::uint32_t (&data)[5]) const;

 private:
  Reply<xcb_get_property_reply_t> propertyReply(xcb_window_t window, xcb_atom_t name, xcb_atom_t type) const;
  void noteTime(const xcb_generic_event_t& event);
  std::uint32_t& rootEventMask();
  void applyRootEventMask();

  xcb_connection_t* connection_;
  xcb_screen_t* screen_;
  double pixelsPerPoint_;
  xcb_timestamp_t lastEventTime_ = XCB_CURRENT_TIME;
  mutable std::map<std::string, xcb_atom_t, std::less<>> atoms_;
  std::optional<std::uint32_t> rootEventMask_;
  std::vector<std::uint32_t> temporaryMasks_;
  CallbackList<const xcb_generic_event_t&> handlers_;
};

}  // namespace rondora::x11
