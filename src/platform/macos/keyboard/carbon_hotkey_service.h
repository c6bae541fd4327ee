#pragma once

#include "platform/hotkey_service.h"

namespace rondora::macos {

/// Hot keys of the Carbon Event Manager. Carbon reports each press and each release once, and swallows both. The keys
/// of an open overlay reach the hot keys first, and modifiers of a Mac do not move.
class CarbonHotkeyService final : public HotkeyService {
 public:
  [[nodiscard]] std::optional<Subscription> registerEventHotKey(std::uint32_t keyCode, std::uint32_t carbonModifiers,
                                                                EventHotKeyID id) override;
  [[nodiscard]] Subscription onModifiersMoved(std::function<void()> observer) override;
  [[nodiscard]] Subscription installEventHandler(Handler handler) override;

 private:
  Signal<> modifiersMoved_;  // never sent
};

}  // namespace rondora::macos
