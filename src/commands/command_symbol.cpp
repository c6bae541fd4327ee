#include "commands/command_symbol.h"

#include <algorithm>
#include <array>

namespace rondora {
namespace {

struct Convention {
  std::string_view character;
  bool hasShift = false;
  std::string_view symbol;
};

// The keys on which desktop guidelines and toolkits agree.
constexpr auto kConventions = std::to_array<Convention>({
    {"N", false, "doc.badge.plus"},
    {"T", false, "plus"},
    {"O", false, "folder.fill"},
    {"S", false, "square.and.arrow.down.fill"},
    {"S", true, "square.and.arrow.down.fill"},
    {"P", false, "printer.fill"},
    {"W", false, "xmark"},
    {"Q", false, "power"},
    {"Z", false, "arrow.uturn.backward"},
    {"Z", true, "arrow.uturn.forward"},
    {"Y", false, "arrow.uturn.forward"},
    {"X", false, "scissors"},
    {"C", false, "doc.on.doc.fill"},
    {"V", false, "doc.on.clipboard.fill"},
    {"F", false, "magnifyingglass"},
    {",", false, "gearshape.fill"},
    {"+", false, "plus.magnifyingglass"},
    {"-", false, "minus.magnifyingglass"},
});

constexpr std::int64_t kShift = 1;
constexpr std::int64_t kCommandAlone = 0;
constexpr std::int64_t kControlAlone = 4 + 8;

}  // namespace

std::string_view commandSymbol(const std::optional<MenuShortcut>& shortcut) {
  constexpr std::string_view kGeneral = "command";
  if (!shortcut) return kGeneral;
  const std::int64_t base = shortcut->modifiers & ~kShift;
  if (base != kCommandAlone && base != kControlAlone) return kGeneral;
  const bool hasShift = (shortcut->modifiers & kShift) != 0;
  const auto* found = std::find_if(kConventions.begin(), kConventions.end(), [&](const Convention& each) {
    return each.character == shortcut->character && each.hasShift == hasShift;
  });
  return found == kConventions.end() ? kGeneral : found->symbol;
}

}  // namespace rondora
