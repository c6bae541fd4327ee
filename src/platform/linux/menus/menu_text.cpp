#include "platform/linux/menus/menu_text.h"

#include "base/unicode.h"

namespace rondora::menus {

std::string titleOfLabel(std::string_view label) {
  std::string title;
  for (std::size_t i = 0; i < label.size(); ++i) {
    if (label[i] == '_' && i + 1 < label.size()) ++i;
    title += label[i];
  }
  return std::string(trimmed(title));
}

}  // namespace rondora::menus
