#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

#include "base/observable.h"

namespace rondora::x11 {

/// Callbacks in the order in which they were added, each of which may consume what it is offered. They may add and
/// remove callbacks, and destroy the list, while they run. Offering allocates nothing. Single-threaded.
template <class... Args>
class CallbackList {
 public:
  /// Returns true when it consumed the event.
  using Callback = std::function<bool(Args...)>;

  [[nodiscard]] Subscription add(Callback callback) {
    auto entry = std::make_shared<Callback>(std::move(callback));
    state_->entries.push_back(entry);
    return Subscription([weak = std::weak_ptr<State>(state_), entry = std::weak_ptr<Callback>(entry)] {
      if (const auto state = weak.lock()) state->remove(entry.lock());
    });
  }

  /// True when a callback consumed the event; later ones are then not asked.
  bool offer(Args... args) const {
    const auto state = state_;
    ++state->walks;
    bool consumed = false;
    for (std::size_t i = 0; i < state->entries.size() && !consumed; ++i) {
      const std::shared_ptr<Callback> entry = state->entries[i];
      consumed = entry && (*entry)(args...);
    }
    if (--state->walks == 0) std::erase(state->entries, nullptr);
    return consumed;
  }

  bool isEmpty() const { return state_->entries.empty(); }

 private:
  struct State {
    std::vector<std::shared_ptr<Callback>> entries;
    int walks = 0;

    // A walk in progress goes by index: leave a gap then.
    void remove(const std::shared_ptr<Callback>& entry) {
      std::replace(entries.begin(), entries.end(), entry, std::shared_ptr<Callback>());
      if (walks == 0) std::erase(entries, nullptr);
    }
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

}  // namespace rondora::x11
