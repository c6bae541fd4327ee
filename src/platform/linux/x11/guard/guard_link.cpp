#include "platform/linux/x11/guard/guard_link.h"

#include <algorithm>
#include <utility>

namespace rondora::x11 {
namespace {

constexpr double kBeatTolerance = 0.05;  // seconds
constexpr std::chrono::seconds kBetweenReplacements{10};

}  // namespace

GuardLink::GuardLink(InputGuard& guard, X11InputGrab& inputGrab, X11RecordingKeyboard& recordingKeyboard,
                     XTestKeyPoster& keyPoster, MainQueue& mainQueue, WatchReadable watchReadable)
    : guard_(guard), mainQueue_(mainQueue), watchReadable_(std::move(watchReadable)) {
  grabObserver_ = inputGrab.onHeldChanged([this](bool isHeld) {
    isRingOpen_ = isHeld;
    grabsChanged();
  });
  recordingObserver_ = recordingKeyboard.onHeldChanged([this](bool isHeld) {
    isRecording_ = isHeld;
    grabsChanged();
  });
  typingObserver_ = keyPoster.onTyping([this](bool isDown) { typing(isDown); });
  watchGuard();
}

void GuardLink::grabsChanged() {
  const bool isHeld = isRingOpen_ || isRecording_;
  guard_.send(isHeld ? GuardMessage::beat : GuardMessage::ungrabbed);
  if (!isHeld) return beats_.reset();
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
