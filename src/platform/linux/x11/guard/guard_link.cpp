#include "platform/linux/x11/guard/guard_link.h"

#include <algorithm>
#include <utility>

namespace rondora::x11 {
namespace {

constexpr double kBeatTolerance = 0.05;  // seconds
constexpr std::chrono::seconds kBetweenReplacements{10};

}  // namespace

GuardLink::GuardLink(InputGuard& guard, X11Backends& display, MainQueue& mainQueue, WatchReadable watchReadable)
    : guard_(guard), mainQueue_(mainQueue), watchReadable_(std::move(watchReadable)) {
  follow(0, display.inputGrab);
  follow(1, display.recordingKeyboard);
  follow(2, display.keys);
  follow(3, display.eventTaps);
  typingObserver_ = display.keyPoster.onTyping([this](bool isDown) { typing(isDown); });
  watchGuard();
}

template <class Holder>
void GuardLink::follow(std::size_t index, Holder& holder) {
  holders_[index] = holder.onHeldChanged([this, index](bool isHeld) {
    holding_[index] = isHeld;
    grabsChanged();
  });
}

void GuardLink::grabsChanged() {
  const bool isHeld = holding_.any();
  guard_.send(isHeld ? GuardMessage::beat : GuardMessage::ungrabbed);
  if (!isHeld) return beats_.reset();
  if (beats_) return;
  beats_ = mainQueue_.timer(kBeatSeconds, kBeatTolerance, [this] { guard_.send(GuardMessage::beat); });
}

// A key is down for milliseconds, between which no timer fires.
void GuardLink::typing(bool isDown) {
  if (!beats_) guard_.send(isDown ? GuardMessage::beat : GuardMessage::ungrabbed);
}

void GuardLink::watchGuard() {
  if (guard_.descriptor() >= 0) guardWatch_ = watchReadable_(guard_.descriptor(), [this] { guardDied(); });
}

// At once, but not again and again where guards cannot live.
void GuardLink::guardDied() {
  guardWatch_.reset();
  const auto now = std::chrono::steady_clock::now();
  const std::chrono::duration<double> wait = std::max(nextReplacement_ - now, now - now);
  replacement_ = mainQueue_.workItem(wait.count(), [this] {
    nextReplacement_ = std::chrono::steady_clock::now() + kBetweenReplacements;
    guard_.replace();
    watchGuard();
  });
}

}  // namespace rondora::x11
