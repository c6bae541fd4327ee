#pragma once

#include <functional>
#include <string_view>

#include "platform/linux/accessibility/served_bus.h"

namespace rondora::accessibility {

/// Knows whether a client of the accessibility bus has asked for the events by which things are announced. The switch
/// org.a11y.Status.IsEnabled does not tell: desktops and this program leave it on for other reasons, and it outlives
/// sessions. Main thread.
class EventListeners {
 public:
  /// `changed` is called after each change. The bus must outlive the object.
  EventListeners(const ServedBus& bus, std::function<void()> changed);
  EventListeners(const EventListeners&) = delete;
  EventListeners& operator=(const EventListeners&) = delete;

  bool any() const { return any_; }

  /// "Object:StateChanged:Showing", or a shorter pattern that covers it; the last parts may be empty or missing.
  static bool covers(std::string_view registeredEvent);

 private:
  static int registryChanged(sd_bus_message* message, void* self, sd_bus_error* error);
  static int listed(sd_bus_message* reply, void* self, sd_bus_error* error);
  void ask();
  void take(sd_bus_message& reply);

  const ServedBus& bus_;
  std::function<void()> changed_;
  bool any_ = false;
  bool isAsking_ = false;
  bool asksAgain_ = false;
};

}  // namespace rondora::accessibility
