#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/event_taps.h"
#include "platform/linux/desktop/shortcut_settings.h"
#include "platform/log.h"
#include "platform/symbolic_hot_key_switch.h"
#include "platform/user_defaults.h"

namespace rondora::desktop {

/// Takes Super+Tab from a desktop that refuses it to the event tap, through the desktop's own settings. What was
/// changed is kept in the user defaults, written before the change, and put back when the shortcut is switched on again
/// or, after a crash, at the next start under the same desktop. Main thread.
class SwitcherKeys final : public SymbolicHotKeySwitch {
 public:
  struct Services {
    UserDefaults& defaults;
    Log& log;
    /// Another program keeps the key from the event tap.
    std::function<bool(const TapKey&)> isRefused;
    /// May return null. Called once, when it is needed.
    std::function<std::unique_ptr<ShortcutSettings>()> makeSettings;
  };

  explicit SwitcherKeys(Services services);

  bool available() override { return true; }
  void setEnabled(std::int32_t id, bool isEnabled) override;

 private:
  struct Taken {
    std::int32_t id = 0;
    /// The name of the settings that were changed.
    std::string settings;
    ShortcutSettings::Change change;
  };

  ShortcutSettings* settings();
  void take(std::int32_t id);
  void putBack(std::int32_t id);
  void readTaken();
  void keepTaken() const;

  Services services_;
  std::unique_ptr<ShortcutSettings> settings_;
  bool hasSettings_ = false;
  std::vector<Taken> taken_;
};

}  // namespace rondora::desktop
