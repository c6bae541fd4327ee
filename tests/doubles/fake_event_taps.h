#pragma once

#include <algorithm>
#include <cstdint>
#include <memory>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "platform/event_taps.h"
#include "platform/secure_input.h"
#include "platform/symbolic_hot_key_switch.h"

namespace rondora {

/// The system's event taps, of which the program has one at most, and what goes with them: secure input and the
/// switch of the system's own shortcuts.
class FakeEventTaps final : public EventTaps, public SecureInput, public SymbolicHotKeySwitch {
 public:
  static constexpr std::int32_t kOwnProcess = 4711;

  std::unique_ptr<EventTap> create(std::uint64_t eventMask, std::span<const TapKey> keys, Callback callback) override {
    if (!isAllowed) return nullptr;
    return std::make_unique<Tap>(*this, State{eventMask, {keys.begin(), keys.end()}, std::move(callback)});
  }
  std::vector<EventTapRecord> list() const override {
    std::vector<EventTapRecord> records = otherTaps;
    if (state) records.push_back({kOwnProcess, state->isEnabled && !isDeaf, state->eventMask});
    return records;
  }
  std::int32_t ownProcess() const override { return kOwnProcess; }
  bool isEnabled() const override { return isSecure; }
  bool available() override { return hasSwitch; }
  void setEnabled(std::int32_t id, bool isEnabled) override {
    isEnabled ? switchedOff.erase(id) : switchedOff.insert(id).second;
    switches.push_back((isEnabled ? "on" : "off") + std::to_string(id));
  }

  /// Passes without a live tap.
  TapVerdict offer(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) const {
    const bool isLive = state && state->isEnabled && state->isListening && !isSecure;
    return isLive ? state->callback(type, keyCode, flags) : TapVerdict::pass;
  }
  bool isSwallowed(std::uint32_t type, std::int64_t keyCode, std::uint64_t flags) const {
    return offer(type, keyCode, flags) == TapVerdict::swallow;
  }

  struct State {
    std::uint64_t eventMask = 0;
    std::vector<TapKey> keys;
    Callback callback;
    bool isEnabled = false;
    bool isListening = false;
    int retakes = 0;
  };
  /// Of the live tap.
  State* state = nullptr;
  /// The user permits taps.
  bool isAllowed = true;
  /// A tap exists, but the system sends it nothing.
  bool isDeaf = false;
  bool isSecure = false;
  bool hasSwitch = true;
  std::vector<EventTapRecord> otherTaps;
  std::set<std::int32_t> switchedOff;
  /// "off1", "on1" …, in the order of the calls.
  std::vector<std::string> switches;

 private:
  class Tap final : public EventTap {
   public:
    Tap(FakeEventTaps& taps, State state) : taps_(taps), state_(std::move(state)) { taps_.state = &state_; }
    ~Tap() override { taps_.state = nullptr; }
    Subscription addToRunLoop() override {
      state_.isListening = true;
      return Subscription([this] { state_.isListening = false; });
    }
    void enable(bool isEnabled) override { state_.isEnabled = isEnabled; }
    void retake() override { ++state_.retakes; }

   private:
    FakeEventTaps& taps_;
    State state_;
  };
};

}  // namespace rondora
