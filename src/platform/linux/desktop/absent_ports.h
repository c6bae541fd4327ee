#pragma once

#include "platform/haptics.h"
#include "platform/symbolic_hot_keys.h"

// Ports for capabilities that this desktop does not have.

namespace rondora::desktop {

/// No pointing device on this desktop has haptics.
class NoHaptics final : public Haptics {
 public:
  bool isAvailable() const override { return false; }
  void perform(HapticPattern /*pattern*/) override {}
};

/// Activating a window switches to its desktop, so no shortcut of the window manager is needed.
class NoSpaceShortcuts final : public SymbolicHotKeys {
 public:
  std::optional<SymbolicHotKey> symbolicHotKey(int /*number*/) const override {
    return SymbolicHotKey{false, std::nullopt};
  }
};

}  // namespace rondora::desktop
