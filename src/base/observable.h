#pragma once

#include <algorithm>
#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace rondora {

/// Ends what it stands for (an observer, a monitor, a timer) when it is destroyed or reset. Move only.
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

/// A list of callbacks that survives subscribing and unsubscribing during a call, and its own end. Single-threaded.
template <class... Args>
class Signal {
 public:
  using Slot = std::function<void(Args...)>;

  [[nodiscard]] Subscription subscribe(Slot slot) const {
    const std::uint64_t id = ++state_->lastId;
    state_->slots.emplace_back(id, std::make_shared<Slot>(std::move(slot)));
    return Subscription([weak = std::weak_ptr<State>(state_), id] {
      if (auto state = weak.lock()) std::erase_if(state->slots, [id](const auto& entry) { return entry.first == id; });
    });
  }

  void send(Args... args) const {
    const auto state = state_;
    const auto slots = state->slots;
    for (const auto& [id, slot] : slots) {
      const bool stillThere = std::any_of(state->slots.begin(), state->slots.end(),
                                          [id = id](const auto& entry) { return entry.first == id; });
      if (stillThere) (*slot)(args...);
    }
  }

 private:
  struct State {
    std::uint64_t lastId = 0;
    std::vector<std::pair<std::uint64_t, std::shared_ptr<Slot>>> slots;
  };
  std::shared_ptr<State> state_ = std::make_shared<State>();
};

/// A current-value publisher: a subscriber gets the present value at once and every later one.
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
