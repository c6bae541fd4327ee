#pragma once

#include <optional>

#include "platform/symbolic_hot_key_switch.h"

namespace rondora::macos {

/// The window server's switch of its own shortcuts, resolved when it is first used.
class SkyLightHotKeySwitch final : public SymbolicHotKeySwitch {
 public:
  bool available() override;
  void setEnabled(std::int32_t id, bool isEnabled) override;

 private:
  using SetEnabled = std::int32_t (*)(std::int32_t id, bool isEnabled);

  SetEnabled function();

  std::optional<SetEnabled> function_;
};

}  // namespace rondora::macos
