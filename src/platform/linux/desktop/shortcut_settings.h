#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "platform/process_environment.h"

namespace rondora::desktop {

/// The keyboard shortcuts in a desktop's own settings. Values are texts of GVariant. Main thread; waits for the
/// desktop, at most about a second for each call.
class ShortcutSettings {
 public:
  /// A change that takes a key away from one shortcut.
  struct Change {
    std::string place;
    std::string before;
    std::string after;
    friend bool operator==(const Change&, const Change&) = default;
  };
  enum class Shortcut { commandTab, commandShiftTab };

  virtual ~ShortcutSettings() = default;

  /// Of the schema or service; the same in every session.
  virtual std::string name() const = 0;
  /// The changes that would free the shortcut; none when nothing of the desktop is bound to it.
  virtual std::vector<Change> changesFor(Shortcut shortcut) = 0;
  /// Empty when the place holds nothing.
  virtual std::string read(const std::string& place) = 0;
  /// A place or value that the settings do not know is ignored.
  virtual void write(const std::string& place, const std::string& value) = 0;
};

/// Those of the running desktop; null when it has none that can be changed from outside.
std::unique_ptr<ShortcutSettings> shortcutSettingsOf(const ProcessEnvironment& environment);

/// GSettings: in the schema every key with an accelerator, or a list of them. Null without the schema.
std::unique_ptr<ShortcutSettings> gSettingsShortcuts(const char* schema);
std::unique_ptr<ShortcutSettings> xfconfShortcuts();
std::unique_ptr<ShortcutSettings> kGlobalAccelShortcuts();

/// True for "<Super>Tab" and its like, in any order and letter case.
bool isAccelerator(std::string_view text, ShortcutSettings::Shortcut shortcut);

}  // namespace rondora::desktop
