#pragma once

#include <utility>
#include <vector>

#include "platform/screens.h"

namespace rondora {

/// By default one screen of 1280 by 800 points with a panel of 30 points at its top.
class FakeScreens final : public Screens {
 public:
  std::vector<Screen> all() const override { return screens; }
  std::optional<Screen> main() const override {
    if (screens.empty() || !hasMain) return std::nullopt;
    return screens.front();
  }
  bool shareWindows() const override { return sharesWindows; }
  [[nodiscard]] Subscription onParametersChanged(std::function<void()> observer) override {
    return changed_.subscribe(std::move(observer));
  }

  void change(std::vector<Screen> newScreens) {
    screens = std::move(newScreens);
    changed_.send();
  }

  std::vector<Screen> screens = {{{{0, 0}, {1280, 800}}, {{0, 30}, {1280, 770}}}};
  bool hasMain = true;
  bool sharesWindows = true;

 private:
  Signal<> changed_;
};

}  // namespace rondora
