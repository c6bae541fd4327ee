#pragma once

#include <memory>

#include "platform/linux/application_menus.h"
#include "platform/linux/menus/bus_connection.h"
#include "platform/linux/menus/call_batch.h"

namespace rondora::menus {

/// The menus that applications publish on the buses. Connects at first use, on its own connections. Elements must not
/// outlive the object.
class PublishedMenus final : public ApplicationMenus {
 public:
  PublishedMenus();

  /// Takes 0.45 s at most, apart from connecting to a bus.
  AXElementRef menuBar(const MenuBarOwner& owner) override;
  void prepareToRead(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                     double seconds) override;

 private:
  AXElementRef gtkMenuBar(const MenuBarOwner& owner, const Deadline& deadline);
  AXElementRef accessibleMenuBar(const MenuBarOwner& owner, const Deadline& deadline);
  AXElementRef registeredMenuBar(const MenuBarOwner& owner, const Deadline& deadline);

  BusConnection session_{sessionBusAddress};
  BusConnection accessibilityBus_;
};

}  // namespace rondora::menus
