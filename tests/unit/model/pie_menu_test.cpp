#include "model/pie_menu.h"

#include <gtest/gtest.h>

#include <type_traits>

#include "doubles/fake_devices.h"
#include "model/appearance_fields.h"

namespace rondora {
namespace {

template <class T>
void change(T& value) {
  if constexpr (std::is_same_v<T, bool>) {
    value = !value;
  } else if constexpr (std::is_same_v<T, LiquidGlassSettings>) {
    value = {LiquidGlassVariant::clear, 0.5};
  } else if constexpr (std::is_same_v<T, double>) {
    value += 1;
  } else {
    value += '!';
  }
}

TEST(PieMenuTest, AppliesSharedAppearanceOnly) {
  PieMenu source;
  for (const AppearanceField& field : kAppearanceFields) {
    std::visit([&](auto member) { change(source.*member); }, field.member);
  }
  source.menuRadius = 90;
  source.innerRadius = 80;
  PieMenu expected = source;
  expected.innerRadius = 68;
  expected.centerAppIconScale = PieMenu().centerAppIconScale;

  source.id = SeededRandom().uuid();
  source.name = "Source";
  source.hotkey = {1, 2};
  source.items.resize(3);
  source.kind = PieMenuKind::appCommands;
  source.runningAppsExcludedBundleIds = {"a"};
  source.runningAppsMenuEnabled = false;
  source.trackpadFingerCount = 4;
  source.appCommandsDefaultEntries.resize(1);
  source.globalSidebarIconColorHex = "#111111";
  PieMenu target;
  target.applySharedVisualSettings(source);
  EXPECT_EQ(target, expected);
}

}  // namespace
}  // namespace rondora
