#pragma once

#include "platform/haptics.h"
#include "platform/multitouch.h"
#include "platform/symbolic_hot_keys.h"

// Ports for capabilities that this desktop does not have.

namespace rondora::desktop {

/// No pointing device on this desktop has haptics.
class NoHaptics final : public Haptics {
 public:
  void perform(HapticPattern /*pattern*/) override {}
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
