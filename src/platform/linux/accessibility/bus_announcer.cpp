#include "platform/linux/accessibility/bus_announcer.h"

#include <utility>

#include "platform/linux/accessibility/at_spi_names.h"

namespace rondora::accessibility {

BusAnnouncer::BusAnnouncer(std::string applicationName, ServedBus::WatchReadable watchReadable)
    : applicationName_(std::move(applicationName)), watchReadable_(std::move(watchReadable)) {}

BusAnnouncer::~BusAnnouncer() { leave(); }

void BusAnnouncer::useBus(const std::optional<std::string>& address) {
  if (bus_ && address == bus_->address()) return;
  leave();
  if (address) bus_ = ServedBus::open(*address, watchReadable_, [this] { leave(); });
  if (bus_) listeners_ = std::make_unique<EventListeners>(*bus_, [this] { listenersChanged(); });
}

/// The bus last: calls in flight name the other objects.
void BusAnnouncer::leave() {
  isEmbedded_ = false;
  const auto bus = std::move(bus_);
  objects_.reset();
  listeners_.reset();
}

void BusAnnouncer::listenersChanged() {
  const char* ownName = nullptr;
  if (!listeners_->any()) {
    isEmbedded_ = false;
    if (objects_ && sd_bus_get_unique_name(bus_->get(), &ownName) >= 0) {
      bus_->call(kRegistry, kRootPath, kSocket, "Unembed", embedded, nullptr, "(so)", ownName, kRootPath);
    }
    return;
  }
  if (!objects_) objects_ = std::make_unique<AnnouncementObjects>(*bus_, applicationName_);
  if (sd_bus_get_unique_name(bus_->get(), &ownName) < 0) return;
  bus_->call(kRegistry, kRootPath, kSocket, "Embed", embedded, this, "(so)", ownName, kRootPath);
}

/// `self` is null when the application leaves.
int BusAnnouncer::embedded(sd_bus_message* reply, void* self, sd_bus_error* /*error*/) {
  auto* announcer = static_cast<BusAnnouncer*>(self);
  if (announcer && announcer->listeners_->any()) {
    announcer->isEmbedded_ = !sd_bus_message_is_method_error(reply, nullptr);
  }
  return 0;
}

void BusAnnouncer::announce(std::string sentence) {
  if (hasListeners()) objects_->show(std::move(sentence));
}

void BusAnnouncer::withdraw() {
  if (objects_) objects_->clear();
}

}  // namespace rondora::accessibility
