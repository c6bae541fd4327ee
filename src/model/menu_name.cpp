#include "model/menu_name.h"

#include "base/unicode.h"

namespace rondora {

std::string listedName(const PieMenu& menu) {
  constexpr std::size_t kMaxCharacters = 60;
  return controlsEscaped(shortened(menu.name, kMaxCharacters));
}

std::string displayName(const PieMenu& menu) {
  const std::string name = listedName(menu);
  return hasRightToLeftLetter(name) ? isolated(name) : name;
}

}  // namespace rondora
