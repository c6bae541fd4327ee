#pragma once

#include <Foundation/Foundation.h>

#include "platform/event_monitors.h"

namespace rondora::macos {

/// The application's own events. The system does not promise an order among its monitors, so it gets one for all.
class AppKitEventMonitors final : public EventMonitors {
 public:
  AppKitEventMonitors() = default;
  ~AppKitEventMonitors() override;
  AppKitEventMonitors(const AppKitEventMonitors&) = delete;
  AppKitEventMonitors& operator=(const AppKitEventMonitors&) = delete;

  [[nodiscard]] Subscription addLocalMonitor(std::uint32_t eventMask, Handler handler) override;
  std::uint64_t currentModifierFlags() const override;

 private:
  void install();

  CallbackList<const KeyEvent&> handlers_;
  /// From the first handler on.
  id monitor_ = nil;
};

}  // namespace rondora::macos
