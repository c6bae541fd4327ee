#include "app/ring_warmer.h"

#include <algorithm>
#include <string>
#include <utility>

#include "pie/quick_select.h"
#include "pie/ring_layout.h"
#include "pie/ring_picture.h"

namespace rondora {
namespace {

constexpr double kQuietTime = 1;  // seconds without a reason to start over
constexpr double kPause = 0.02;   // between two menus, for whatever else is waiting
constexpr std::size_t kMostMenus = 32;
constexpr double kLargestRadius = 10000;  // points: no screen sets a limit here

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
  const bool all = std::exchange(isDocumentDue_, false);
  waiting_.clear();
  for (const PieMenu& menu : services_.config.current().menus) {
    if ((all || menu.kind == PieMenuKind::runningApps) && waiting_.size() < kMostMenus) waiting_.push_back(menu);
  }
  std::reverse(waiting_.begin(), waiting_.end());
  warmNext();
}

void RingWarmer::warmNext() {
  if (waiting_.empty()) return;
  const PieMenu menu = std::move(waiting_.back());
  waiting_.pop_back();
  prepare(menu);
  next_ = services_.mainQueue.workItem(kPause, weakSelf_.bind([](RingWarmer& self) { self.warmNext(); }));
}

void RingWarmer::prepare(const PieMenu& menu) const {
  const std::vector<PieMenuItem> items =
      menu.kind == PieMenuKind::runningApps ? services_.runningAppsMenuItems.build(menu) : menu.items;
  std::vector<std::string> titles;
  titles.reserve(items.size());
  for (const PieMenuItem& item : items) titles.push_back(services_.titles.title(item));
  const auto labels = resolvedShortcutLabels(items);
  const RingLayout layout = RingLayout::make(menu, menu.rotationDegrees, items.size(), kLargestRadius);
  services_.rasterizer.prepare(makeRingPicture(menu, layout, {items, titles, labels}), services_.pixelsPerPoint);
}

}  // namespace rondora
