#include "input/hotkeys/hotkey_hid_tap.h"

#include <gtest/gtest.h>

namespace rondora {
namespace {

PieMenu menuWith(HotkeyConfig hotkey, PieMenuKind kind = PieMenuKind::standard) {
  PieMenu menu;
  menu.hotkey = hotkey;
  menu.kind = kind;
  return menu;
}

TEST(HotkeyHIDTap, BindsWhatTheHotKeyServiceCannotServe) {
  PieMenu disabled = menuWith({63, 0}, PieMenuKind::appCommands);
  disabled.runningAppsMenuEnabled = false;
  HotkeyHIDTap tap;
  tap.start({menuWith({49, carbon::kControl}), menuWith({63, 0}), menuWith({0, carbon::kFunction}), disabled,
             menuWith({48, carbon::kCommand | carbon::kOption}), menuWith({63, 0}), menuWith({48, carbon::kOption}),
             menuWith({-1, carbon::kFunction})});

  const std::vector<HotkeyHIDTap::Binding> expected = {{{63, 0}, {1, 5}, true},
                                                       {{0, carbon::kFunction}, {2}, false},
                                                       {{48, carbon::kCommand | carbon::kOption}, {4}, false}};
  EXPECT_EQ(tap.bindings(), expected);
  tap.start({menuWith({48, carbon::kCommand})});
  EXPECT_FALSE(tap.claimsCommandTab()) << "without a port the system's switcher keeps its keys";
  EXPECT_FALSE(HotkeyHIDTap::requiresAccessibility({menuWith({49, carbon::kControl}), menuWith({-1, 0}), disabled}));
  EXPECT_TRUE(HotkeyHIDTap::requiresAccessibility({menuWith({49, 0}), menuWith({63, 0})}));
}

}  // namespace
}  // namespace rondora
