#pragma once

#include <optional>

#include "model/hotkey_config.h"
#include "platform/key_event.h"

namespace rondora {

/// Decides which presses of the trigger's key step the highlight. Main thread.
class ChordNavigation {
 public:
  /// A menu was shown: its trigger's key is still down. Without `hotkey` no key steps.
  void begin(const std::optional<HotkeyConfig>& hotkey);
  void end();

  const std::optional<HotkeyConfig>& hotkey() const { return hotkey_; }
  /// True until the key that opened the menu has gone up once.
  bool ignoresUntilMainKeyUp() const { return ignoresUntilMainKeyUp_; }
  void clearIgnoreUntilMainKeyUp() { ignoresUntilMainKeyUp_ = false; }

  void keyUp(const KeyEvent& event);
  /// The key-down is an auto-repeat of the press that opened the menu.
  bool repeatsOpeningKey(const KeyEvent& event) const;
  /// The key-down is the trigger again, with exactly its modifiers.
  bool isStep(const KeyEvent& event) const;
  /// False for a step less than 0.018 s after the last admitted one. `uptime` is in seconds.
  bool admitsStep(double uptime);

 private:
  bool isMainKey(const KeyEvent& event) const { return hotkey_ && event.keyCode == hotkey_->keyCode; }

  std::optional<HotkeyConfig> hotkey_;
  bool ignoresUntilMainKeyUp_ = false;
  std::optional<double> lastAdvanceUptime_;
};

}  // namespace rondora
