#pragma once

#include <memory>
#include <optional>
#include <string>

#include "platform/announcer.h"
#include "platform/linux/accessibility/announcement_objects.h"
#include "platform/linux/accessibility/event_listeners.h"
#include "platform/linux/accessibility/served_bus.h"

namespace rondora::accessibility {

/// Announces over the accessibility bus. The notification of a status bar is what screen readers speak without taking
/// it for the focus, which stays in the application in front. On the bus from the time when it is switched on; an
/// application there only while a client listens. Main thread.
class BusAnnouncer final : public Announcer {
 public:
  BusAnnouncer(std::string applicationName, ServedBus::WatchReadable watchReadable);
  ~BusAnnouncer() override;

  /// The address of the accessibility bus; nothing while it is switched off.
  void useBus(const std::optional<std::string>& address);

  bool hasListeners() const override { return isEmbedded_; }
  void announce(std::string sentence) override;
  void withdraw() override;

 private:
  static int embedded(sd_bus_message* reply, void* self, sd_bus_error* error);
  void listenersChanged();
  void leave();

  std::string applicationName_;
  ServedBus::WatchReadable watchReadable_;
  std::unique_ptr<ServedBus> bus_;
  std::unique_ptr<EventListeners> listeners_;
  std::unique_ptr<AnnouncementObjects> objects_;
  /// The registry lists the application.
  bool isEmbedded_ = false;
};

}  // namespace rondora::accessibility
