#include "app/request_gate.h"

#include <utility>

namespace rondora {
namespace {

constexpr double kPause = 0.1;  // seconds; shorter than a user needs for a second request

}  // namespace

void RequestGate::request(std::function<void()> serve) {
  latest_ = std::move(serve);
  if (!turn_) next(0);
}

void RequestGate::next(double seconds) {
  turn_ = mainQueue_.workItem(seconds, weakSelf_.bind([](RequestGate& self) {
    const auto serve = std::exchange(self.latest_, nullptr);
    if (!serve) return self.turn_.reset();
    self.next(kPause);
    serve();
  }));
}

}  // namespace rondora
