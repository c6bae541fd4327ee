#include "platform/linux/x11/keyboard/modifier_keys.h"

#include <gtest/gtest.h>
#include <xkbcommon/xkbcommon.h>

#include "base/owned.h"
#include "platform/linux/x11/keyboard/layout_switches.h"
#include "unit/x11/server_model.h"

namespace rondora::x11 {
namespace {

UniqueCPtr<xkb_keymap, xkb_keymap_unref> keymapOf(const char* layout, const char* options = "") {
  const UniqueCPtr<xkb_context, xkb_context_unref> context(xkb_context_new(XKB_CONTEXT_NO_FLAGS));
  const xkb_rule_names names{"evdev", "pc105", layout, "", options};
  return UniqueCPtr<xkb_keymap, xkb_keymap_unref>(
      xkb_keymap_new_from_names(context.get(), &names, XKB_KEYMAP_COMPILE_NO_FLAGS));
}

ModifierKeys keysOf(const char* layout, const char* options = "") {
  return modifierKeysOf(keymapOf(layout, options).get());
}

ModifierSet setOf(std::initializer_list<Modifier> modifiers) {
  ModifierSet set;
  for (const Modifier modifier : modifiers) set.set(static_cast<std::size_t>(modifier));
  return set;
}

const auto kControlAndShift = setOf({Modifier::control, Modifier::shift});
const auto kCommand = setOf({Modifier::command});

}  // namespace

TEST(ModifierKeysTest, RightKeyReplacesAHeldLeftKey) {
  const ModifierKeys keys = keysOf("us");
  EXPECT_EQ(keys.chordFor(kControlAndShift, {}), (Chord{{kControlL, kShiftL}, 0}));
  EXPECT_EQ(keys.chordFor(kControlAndShift, KeySet().set(kShiftL)), (Chord{{kControlL, kShiftR}, 0}));
  EXPECT_EQ(keys.chordFor(kControlAndShift, KeySet().set(kShiftL).set(kShiftR)), (Chord{{kControlL}, 0x01}));
  EXPECT_TRUE(keys.locking[kCapsLock] && keys.locking[kNumLock]);
  EXPECT_EQ(keys.toggledMask, 0x02);
  EXPECT_EQ(keys.numLockMask, 0x10);
}

TEST(ModifierKeysTest, AltGrIsNoAlt) {
  EXPECT_EQ(keysOf("us").setters[1].keys.front(), kAltL);
  EXPECT_EQ(keysOf("us").setters[1].keys.at(1), kAltGr);
  for (const char* layout : {"de", "fr", "us,de"}) {
    const ModifierKeys keys = keysOf(layout);
    EXPECT_TRUE(keys.holding[kAltGr]) << layout;
    EXPECT_EQ(std::count(keys.setters[1].keys.begin(), keys.setters[1].keys.end(), kAltGr), 0) << layout;
  }
}

TEST(ModifierKeysTest, ModifierWithoutKeyCannotBeSet) {
  EXPECT_TRUE(keysOf("us").canSet(kCommand));
  EXPECT_FALSE(keysOf("us", "altwin:alt_win").canSet(setOf({Modifier::command})));
}

TEST(ModifierKeysTest, NamesTheOptionThatMakesAChordSwitchTheLayout) {
  const auto chord = setOf({Modifier::control, Modifier::option});
  const auto expectSwitch = [&](const char* options, const char* name) {
    for (const char* layout : {"us", "us,ru"}) EXPECT_TRUE(switchesLayout(keymapOf(layout, options).get(), chord));
    EXPECT_EQ(layoutOptionOf(options, chord), name);
  };
  expectSwitch("grp:ctrl_alt_toggle", "grp:ctrl_alt_toggle");
  expectSwitch("compose:menu,grp:alt_shift_toggle,grp:lalt_toggle,grp:win_space_toggle", "grp:lalt_toggle");
  for (const char* harmless : {"", "grp:alt_shift_toggle", "grp:win_space_toggle", "ctrl:swapcaps", "grp:toggle"}) {
    EXPECT_FALSE(switchesLayout(keymapOf("us,ru", harmless).get(), chord)) << harmless;
  }
  EXPECT_EQ(layoutOptionOf("compose:menu", chord), std::nullopt);
}

// Control and Shift together switch the layout here, so typing both keys would switch it.
TEST(ModifierKeysTest, LayoutSwitchingModifiersAreLocked) {
  const ModifierKeys keys = keysOf("us,ru", "grp:ctrl_shift_toggle");
  EXPECT_EQ(keys.chordFor(kControlAndShift, {}), (Chord{{}, 0x05}));
  EXPECT_EQ(keys.chordFor(setOf({Modifier::control}), {}), (Chord{{kControlL}, 0}));
  EXPECT_FALSE(keys.canBeHeldTogether(KeySet().set(kControlL).set(kShiftL)));
  EXPECT_TRUE(keys.canBeHeldTogether(KeySet().set(kControlL).set(kAltGr)));
}

}  // namespace rondora::x11
