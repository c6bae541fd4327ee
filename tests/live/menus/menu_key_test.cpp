#include "platform/linux/menus/menu_key.h"

#include <gtest/gtest.h>

namespace rondora::menus {
namespace {

TEST(MenuKeyTest, ReadsTheFormsOfTheToolkits) {
  constexpr std::int64_t kShift = 1, kOption = 2, kControl = 4, kNoCommand = 8;
  const struct {
    const char* binding;
    std::optional<MenuKey> key;
  } cases[] = {
      {"o;<Alt>f:o;<Primary>o", MenuKey{"O", kControl | kNoCommand}},
      {"w;<Alt>f:w;<Primary><Shift>w", MenuKey{"W", kShift | kControl | kNoCommand}},
      {";;F11", MenuKey{"\uF70E", kNoCommand}},
      {"x;<Alt>v:x;", std::nullopt},
      {"c;;<Super>comma", MenuKey{",", 0}},
      {"p;;<Control>Page_Down", MenuKey{"\uF72D", kControl | kNoCommand}},
      {"<Alt>Cyrillic_che", MenuKey{"\u0427", kOption | kNoCommand}},
      {"Ctrl+Shift+O", MenuKey{"O", kShift | kControl | kNoCommand}},
      {"Strg+Umschalt+Entf", std::nullopt},
      {"Strg+Umschalt+\u00e4", MenuKey{"\u00c4", kShift | kControl | kNoCommand}},
      {"Ctrl++", MenuKey{"+", kControl | kNoCommand}},
      {"Ctrl+;", MenuKey{";", kControl | kNoCommand}},
      {"Meta+F35", MenuKey{"\uF726", 0}},
      {"F36", std::nullopt},
      {"Del", MenuKey{"\uF728", kNoCommand}},
      {"Ctrl+K, Ctrl+S", std::nullopt},
      {"Hyper+A", std::nullopt},
      {"", std::nullopt},
      {"<", MenuKey{"<", kNoCommand}},
  };
  for (const auto& [binding, key] : cases) EXPECT_EQ(menuKeyOfBinding(binding), key) << binding;
}

}  // namespace
}  // namespace rondora::menus
