#include "model/menu_name.h"

#include "base/unicode.h"

namespace rondora {

std::string displayName(const PieMenu& menu) {
  constexpr std::size_t kMaxCharacters = 60;
  const std::string name = controlsEscaped(shortened(menu.name, kMaxCharacters));
  return hasRightToLeftLetter(name) ? isolated(name) : name;
}

}  // namespace rondora
