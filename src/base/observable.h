#pragma once

#include <algorithm>
#include <cstddef>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace rondora {

/// Ends its observer, monitor or timer when it is destroyed or reset. Move only.
class Subscription {
 public:
  Subscription() = default;
  explicit Subscription(std::function<void()> cancel) : cancel_(std::move(cancel)) {}
  Subscription(Subscription&& other) noexcept : cancel_(std::exchange(other.cancel_, nullptr)) {}
  Subscription& operator=(Subscription&& other) noexcept {
    if (this != &other) {
      reset();
      cancel_ = std::exchange(other.cancel_, nullptr);
    }
    return *this;
  }
  ~Subscription() { reset(); }

  void reset() {
    if (auto cancel = std::exchange(cancel_, nullptr)) cancel();
  }
  explicit operator bool() const { return static_cast<bool>(cancel_); }

 private:
  std::function<void()> cancel_;
};

/// Callbacks in the order in which they were added. During a walk they may add and remove callbacks, and destroy the
/// list; a callback added during a walk is not part of it. A walk allocates nothing. Single-threaded.
template <class Callback>
class CallbackTable {
 public:
  [[nodiscard]] Subscription add(Callback callback) const {
    auto entry = std::make_shared<Callback>(std::move(callback));
    state_->entries.push_back(entry);
    return Subscription([weak = std::weak_ptr<State>(state_), entry = std::weak_ptr<Callback>(entry)] {
      if (const auto state = weak.lock()) state->remove(entry.lock());
    });
  }

  /// Ends when `visit` returns true, and returns that.
  template <class Visit>
  bool walk(Visit visit) const {
    const auto state = state_;
    ++state->walks;
    bool isDone = false;
    const std::size_t count = state->entries.size();
    for (std::size_t i = 0; i < count && !isDone; ++i) {
      const std::shared_ptr<Callback> entry = state->entries[i];
      isDone = entry && visit(*entry);
    }
    if (--state->walks == 0) std::erase(state->entries, nullptr);
    return isDone;
  }

  std::size_t size() const { return state_->entries.size(); }

 private:
  struct State {
    std::vector<std::shared_ptr<Callback>> entries;
    int walks = 0;

    // A walk goes by index, so removal during a walk leaves a gap.
    void remove(const std::shared_ptr<Callback>& entry) {
      std::replace(entries.begin(), entries.end(), entry, std::shared_ptr<Callback>());
      if (walks == 0) std::erase(entries, nullptr);
    }
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// Observers of an event. See CallbackTable.
template <class... Args>
class Signal {
 public:
  using Slot = std::function<void(Args...)>;

  [[nodiscard]] Subscription subscribe(Slot slot) const { return slots_.add(std::move(slot)); }
  void send(Args... args) const {
    slots_.walk([&](const Slot& slot) {
      slot(args...);
      return false;
    });
  }
  std::size_t size() const { return slots_.size(); }

 private:
  CallbackTable<Slot> slots_;
};

/// Callbacks that may consume an event; later ones then do not receive it. See CallbackTable.
template <class... Args>
class CallbackList {
 public:
  /// Returns true when it consumed the event.
  using Callback = std::function<bool(Args...)>;

  [[nodiscard]] Subscription add(Callback callback) { return callbacks_.add(std::move(callback)); }
  bool offer(Args... args) const {
    return callbacks_.walk([&](const Callback& callback) { return callback(args...); });
  }
  bool isEmpty() const { return callbacks_.size() == 0; }
  std::size_t size() const { return callbacks_.size(); }

 private:
  CallbackTable<Callback> callbacks_;
};

/// A current-value publisher: a subscriber receives the present value at once and every later one.
template <class T>
class CurrentValue {
 public:
  explicit CurrentValue(T value) : value_(std::move(value)) {}

  const T& value() const { return value_; }
  void send(T value) {
    value_ = std::move(value);
    signal_.send(value_);
  }
  [[nodiscard]] Subscription subscribe(std::function<void(const T&)> slot) const {
    slot(value_);
    return signal_.subscribe(std::move(slot));
  }

 private:
  T value_;
  Signal<const T&> signal_;
};

/// Passes a value on only when it differs from the one before.
template <class T>
std::function<void(const T&)> removingDuplicates(std::function<void(const T&)> slot) {
  return [slot = std::move(slot), last = std::shared_ptr<T>()](const T& value) mutable {
    if (last && *last == value) return;
    last = std::make_shared<T>(value);
    slot(value);
  };
}

}  // namespace rondora
