#include "app/ring_warmer.h"

#include <utility>

namespace rondora {
namespace {

constexpr double kQuietTime = 1;        // seconds without a new reason
constexpr double kPause = 0.02;         // between two menus, for other work
constexpr double kOpenRingPause = 0.5;  // before the next check while a ring is open
constexpr std::size_t kMaxMenus = 32;

}  // namespace

RingWarmer::RingWarmer(const Services& services) : services_(services) {
  configuration_ = services_.config.configuration().subscribe(
      weakSelf_.bind([](RingWarmer& self, const PieConfiguration&) { self.warm(); }));
  activations_ = services_.workspace.onDidActivateApplication(
      weakSelf_.bind([](RingWarmer& self, const RunningApplication&) { self.waitForQuiet(); }));
}

void RingWarmer::warm() {
  isDocumentDue_ = true;
  waitForQuiet();
}

void RingWarmer::waitForQuiet() {
  next_ = services_.mainQueue.workItem(kQuietTime, weakSelf_.bind([](RingWarmer& self) { self.begin(); }));
}

void RingWarmer::begin() {
  waiting_.clear();
  for (const bool hasHotkey : {true, false}) {
    for (const PieMenu& menu : services_.config.current().menus) {
      const bool isDue = isDocumentDue_ || menu.kind == PieMenuKind::runningApps;
      if (!isDue || !menu.isEnabled() || menu.hasLiveHotkey() != hasHotkey) continue;
      if (waiting_.size() < kMaxMenus) waiting_.push_back(menu);
    }
  }
  takeTurn();
}

void RingWarmer::takeTurnIn(double seconds) {
  next_ = services_.mainQueue.workItem(seconds, weakSelf_.bind([](RingWarmer& self) { self.takeTurn(); }));
}

void RingWarmer::takeTurn() {
  if (waiting_.empty()) {
    isDocumentDue_ = false;
    return;
  }
  if (services_.isRingOpen()) return takeTurnIn(kOpenRingPause);
  const PieMenu menu = std::move(waiting_.back());
  waiting_.pop_back();
  services_.prepare(menu);
  takeTurnIn(kPause);
}

}  // namespace rondora
