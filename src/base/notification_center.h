#pragma once

#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "base/observable.h"

namespace rondora {

/// Named notifications without payload, delivered synchronously in the order of registration.
/// Main thread only.
class NotificationCenter {
 public:
  void post(std::string_view name) const {
    if (const auto found = signals_.find(name); found != signals_.end()) found->second.send();
  }
  [[nodiscard]] Subscription addObserver(std::string_view name, std::function<void()> observer) {
    return signals_[std::string(name)].subscribe(std::move(observer));
  }

 private:
  std::map<std::string, Signal<>, std::less<>> signals_;
};

}  // namespace rondora
