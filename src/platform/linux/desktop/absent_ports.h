#pragma once

#include "platform/event_taps.h"
#include "platform/haptics.h"
#include "platform/multitouch.h"
#include "platform/secure_input.h"
#include "platform/symbolic_hot_key_switch.h"
#include "platform/symbolic_hot_keys.h"

// Ports for capabilities that this desktop does not have.

namespace rondora::desktop {

/// No pointing device on this desktop has haptics.
class NoHaptics final : public Haptics {
 public:
  void perform(HapticPattern /*pattern*/) override {}
};

class NoEventTaps final : public EventTaps, public SecureInput, public SymbolicHotKeySwitch {
 public:
  std::unique_ptr<EventTap> create(std::uint64_t /*mask*/, std::span<const TapKey> /*keys*/, Callback) override {
    return nullptr;
  }
  std::vector<EventTapRecord> list() const override { return {}; }
  std::int32_t ownProcess() const override { return 0; }
  bool isEnabled() const override { return false; }
  bool available() override { return false; }
  void setEnabled(std::int32_t /*id*/, bool /*isEnabled*/) override {}
};

/// Activating a window switches to its desktop, so no shortcut of the window manager is needed.
class NoSpaceShortcuts final : public SymbolicHotKeys {
 public:
  std::optional<SymbolicHotKey> symbolicHotKey(int /*number*/) const override {
    return SymbolicHotKey{false, std::nullopt};
  }
};

/// Contact frames are not read yet.
class NoMultitouch final : public MultitouchDevices {
 public:
  bool isUsable() const override { return false; }
  std::optional<std::vector<MultitouchDevice>> createList() override { return std::nullopt; }
  void registerContactFrameCallback(MultitouchDevice /*device*/, FrameCallback /*callback*/) override {}
  void unregisterContactFrameCallback(MultitouchDevice /*device*/) override {}
  void start(MultitouchDevice /*device*/) override {}
  void stop(MultitouchDevice /*device*/) override {}
  Subscription onArrival(std::function<void()> /*observer*/) override { return {}; }
};

}  // namespace rondora::desktop
