#include "platform/linux/desktop/switcher_keys.h"

#include <gtest/gtest.h>

#include <cstdlib>

#include "doubles/fake_log.h"
#include "doubles/fake_user_defaults.h"

namespace rondora::desktop {
namespace {

constexpr const char* kSchema = "org.gnome.desktop.wm.keybindings";
constexpr const char* kPlace = "switch-applications";

TEST(SwitcherKeysTest, TakesTheShortcutFromTheDesktopAndPutsItBackAfterACrash) {
  setenv("GSETTINGS_BACKEND", "memory", 1);
  setenv("GSETTINGS_SCHEMA_DIR", "/usr/share/glib-2.0/schemas", 1);
  FakeUserDefaults defaults;
  FakeLog log;
  bool isRefused = true;
  const SwitcherKeys::Services services{defaults, log, [&](const TapKey&) { return isRefused; },
                                        [] { return gSettingsShortcuts(kSchema); }};
  const auto settings = gSettingsShortcuts(kSchema);
  ASSERT_NE(settings, nullptr);
  const std::string before = settings->read(kPlace), taken = "['<Alt>Tab']";
  ASSERT_EQ(before, "['<Super>Tab', '<Alt>Tab']");
  SwitcherKeys(services).setEnabled(SymbolicHotKeySwitch::kCommandTab, false);
  EXPECT_EQ(settings->read(kPlace), taken);
  EXPECT_EQ(settings->read("switch-applications-backward"), "['<Shift><Super>Tab', '<Shift><Alt>Tab']");

  const SwitcherKeys::Services otherDesktop{defaults, log, services.isRefused,
                                            [] { return gSettingsShortcuts("org.gnome.desktop.input-sources"); }};
  SwitcherKeys(otherDesktop).setEnabled(SymbolicHotKeySwitch::kCommandTab, true);
  otherDesktop.makeSettings()->write(kPlace, before);
  settings->write(kPlace, "'Tab'");
  EXPECT_EQ(settings->read(kPlace), taken) << "another desktop, and a value of another type";
  SwitcherKeys next(services);
  EXPECT_EQ(settings->read(kPlace), before) << "the start after a crash";
  next.setEnabled(SymbolicHotKeySwitch::kCommandTab, false);
  next.setEnabled(SymbolicHotKeySwitch::kCommandShiftTab, false);
  next.setEnabled(SymbolicHotKeySwitch::kCommandTab, true);
  EXPECT_EQ(settings->read(kPlace), before);
  EXPECT_EQ(settings->read("switch-applications-backward"), "['<Shift><Alt>Tab']");
  next.setEnabled(SymbolicHotKeySwitch::kCommandTab, false);
  settings->write(kPlace, "['F12']");
  next.setEnabled(SymbolicHotKeySwitch::kCommandTab, true);
  EXPECT_EQ(settings->read(kPlace), "['F12']") << "the user has changed it since";

  settings->write(kPlace, before);
  isRefused = false;
  next.setEnabled(SymbolicHotKeySwitch::kCommandTab, false);
  EXPECT_EQ(settings->read(kPlace), before) << "the grab is enough";
  isRefused = true;
  SwitcherKeys({defaults, log, services.isRefused, [] { return nullptr; }})
      .setEnabled(SymbolicHotKeySwitch::kCommandTab, false);
  EXPECT_TRUE(log.contains(LogLevel::error, "cannot take shortcut 1 from this desktop's application switcher"));
  EXPECT_TRUE(isAccelerator("<shift><Mod4>ISO_Left_Tab", ShortcutSettings::Shortcut::commandShiftTab));
  EXPECT_FALSE(isAccelerator("<Primary><Super>Tab", ShortcutSettings::Shortcut::commandTab));
}

}  // namespace
}  // namespace rondora::desktop
