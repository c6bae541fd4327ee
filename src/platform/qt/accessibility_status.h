#pragma once

#include <QAction>
#include <functional>
#include <optional>
#include <string>

#include "platform/qt/reconnecting_bus.h"

namespace rondora {

/// Whether the session's accessibility bus is switched on, as the session bus tells. Starts no service. Main thread.
class AccessibilityStatus {
 public:
  /// The address of the accessibility bus; nothing while it is switched off.
  using Observer = std::function<void(const std::optional<std::string>& address)>;

  /// `observer` is called once it is known, and after changes; sometimes without one. The bus must outlive the object.
  AccessibilityStatus(ReconnectingBus& sessionBus, Observer observer);

 private:
  void listen();
  void ask();
  void askAddress();

  ReconnectingBus& bus_;
  Observer observer_;
  /// Receives the bus's signals, and the replies while it lives.
  QAction changed_;
  Subscription busReturns_;
};

}  // namespace rondora
