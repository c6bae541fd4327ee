#include "platform/linux/accessibility/event_listeners.h"

#include <algorithm>
#include <utility>

#include "platform/linux/accessibility/at_spi_names.h"

namespace rondora::accessibility {
namespace {

constexpr const char* kPath = "/org/a11y/atspi/registry";
constexpr const char* kInterface = "org.a11y.atspi.Registry";

}  // namespace

bool EventListeners::covers(std::string_view registeredEvent) {
  constexpr std::string_view kParts[] = {"Object", "StateChanged", "Showing"};
  std::string_view rest = registeredEvent;
  for (const std::string_view part : kParts) {
    const std::string_view registered = rest.substr(0, rest.find(':'));
    rest.remove_prefix(std::min(rest.size(), registered.size() + 1));
    if (registered != part && !registered.empty()) return false;
  }
  return true;
}

// The registry announces listeners that come, and every client that goes.
EventListeners::EventListeners(const ServedBus& bus, std::function<void()> changed)
    : bus_(bus), changed_(std::move(changed)) {
  for (const char* rule : {"type='signal',path='/org/a11y/atspi/registry',interface='org.a11y.atspi.Registry'",
                           "type='signal',sender='org.freedesktop.DBus',member='NameOwnerChanged',"
                           "arg0='org.a11y.atspi.Registry'"}) {
    sd_bus_add_match_async(bus_.get(), nullptr, rule, registryChanged, nullptr, this);
  }
  ask();
}

int EventListeners::registryChanged(sd_bus_message* /*message*/, void* self, sd_bus_error* /*error*/) {
  static_cast<EventListeners*>(self)->ask();
  return 0;
}

/// A screen reader registers for dozens of events; one question at a time serves them all.
void EventListeners::ask() {
  asksAgain_ = isAsking_;
  if (!std::exchange(isAsking_, true)) {
    bus_.call(kRegistry, kPath, kInterface, "GetRegisteredEvents", listed, this);
  }
}

int EventListeners::listed(sd_bus_message* reply, void* self, sd_bus_error* /*error*/) {
  static_cast<EventListeners*>(self)->take(*reply);
  return 0;
}

void EventListeners::take(sd_bus_message& reply) {
  isAsking_ = false;
  if (std::exchange(asksAgain_, false)) ask();
  bool any = false;
  if (!sd_bus_message_is_method_error(&reply, nullptr) && sd_bus_message_enter_container(&reply, 'a', "(ss)") > 0) {
    const char* client = nullptr;
    const char* event = nullptr;
    while (!any && sd_bus_message_read(&reply, "(ss)", &client, &event) > 0) any = covers(event);
  }
  if (std::exchange(any_, any) != any) changed_();
}

}  // namespace rondora::accessibility
