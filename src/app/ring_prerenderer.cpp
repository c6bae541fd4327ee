#include "app/ring_prerenderer.h"

#include <utility>

namespace rondora {
namespace {

constexpr double kQuietTime = 1;        // seconds without a new reason
constexpr double kIconQuietTime = 0.2;  // the same for icons
constexpr double kPause = 0.02;         // between two menus, for other work
constexpr double kOpenRingPause = 0.5;  // before the next check while a ring is open
constexpr std::size_t kMaxMenus = 32;
constexpr std::size_t kMaxItems = 600;  // of all of them

}  // namespace

RingPrerenderer::RingPrerenderer(const Services& services) : services_(services) {
  configuration_ = services_.config.configuration().subscribe(
      weakSelf_.bind([](RingPrerenderer& self, const PieConfiguration&) { self.prerenderAll(); }));
  activations_ = services_.workspace.onDidActivateApplication(
      weakSelf_.bind([](RingPrerenderer& self, const RunningApplication&) { self.waitForQuiet(kQuietTime); }));
}

void RingPrerenderer::prerenderAll() {
  isDocumentDue_ = true;
  waitForQuiet(kQuietTime);
}

void RingPrerenderer::iconsChanged() {
  isDocumentDue_ = true;
  waitForQuiet(kIconQuietTime);
}

void RingPrerenderer::commandsKnown() { waitForQuiet(kQuietTime); }

void RingPrerenderer::waitForQuiet(double seconds) {
  next_ = services_.mainQueue.workItem(seconds, weakSelf_.bind([](RingPrerenderer& self) { self.begin(); }));
}

void RingPrerenderer::begin() {
  waiting_.clear();
  std::size_t items = 0;
  for (const bool hasHotkey : {true, false}) {
    for (const PieMenu& menu : services_.config.current().menus) {
      const bool isDue = isDocumentDue_ || menu.kind != PieMenuKind::standard;
      if (!isDue || !menu.isEnabled() || menu.hasLiveHotkey() != hasHotkey) continue;
      if (waiting_.size() == kMaxMenus || items + menu.items.size() > kMaxItems) continue;
      items += menu.items.size();
      waiting_.push_back(menu);
    }
  }
  takeTurn();
}

void RingPrerenderer::takeTurnIn(double seconds) {
  next_ = services_.mainQueue.workItem(seconds, weakSelf_.bind([](RingPrerenderer& self) { self.takeTurn(); }));
}

void RingPrerenderer::takeTurn() {
  if (waiting_.empty()) {
    isDocumentDue_ = false;
    return;
  }
  if (services_.isRingOpen()) return takeTurnIn(kOpenRingPause);
  const PieMenu menu = std::move(waiting_.back());
  waiting_.pop_back();
  services_.prerender(menu);
  takeTurnIn(kPause);
}

}  // namespace rondora
