#include "platform/linux/desktop/shortcut_settings.h"

#include <algorithm>
#include <cctype>

namespace rondora::desktop {
namespace {

struct DesktopSchema {
  std::string_view desktop;
  const char* schema;
};

/// By the names in XDG_CURRENT_DESKTOP.
constexpr DesktopSchema kSchemas[] = {{"GNOME", "org.gnome.desktop.wm.keybindings"},
                                      {"Unity", "org.gnome.desktop.wm.keybindings"},
                                      {"Pantheon", "org.gnome.desktop.wm.keybindings"},
                                      {"X-Cinnamon", "org.cinnamon.desktop.keybindings.wm"},
                                      {"MATE", "org.mate.Marco.global-keybindings"}};

}  // namespace

std::unique_ptr<ShortcutSettings> shortcutSettingsOf(const ProcessEnvironment& environment) {
  const std::string desktops = ":" + environment.variable("XDG_CURRENT_DESKTOP").value_or("") + ":";
  const auto runs = [&](std::string_view desktop) {
    return desktops.find(":" + std::string(desktop) + ":") != desktops.npos;
  };
  for (const auto& [desktop, schema] : kSchemas) {
    if (runs(desktop)) return gSettingsShortcuts(schema);
  }
  if (runs("XFCE")) return xfconfShortcuts();
  if (runs("KDE")) return kGlobalAccelShortcuts();
  return nullptr;
}

bool isAccelerator(std::string_view text, ShortcutSettings::Shortcut shortcut) {
  bool hasSuper = false, hasShift = false;
  std::string word;
  for (const char letter : text) {
    if (letter == '<') {
      word.clear();
    } else if (letter != '>') {
      word += static_cast<char>(std::tolower(static_cast<unsigned char>(letter)));
    } else if (const bool isSuper = word == "super" || word == "mod4"; isSuper || word == "shift") {
      (isSuper ? hasSuper : hasShift) = true;
      word.clear();
    } else {
      return false;
    }
  }
  const bool isTab = word == "tab" || word == "iso_left_tab";
  return isTab && hasSuper && hasShift == (shortcut == ShortcutSettings::Shortcut::commandShiftTab);
}

}  // namespace rondora::desktop
