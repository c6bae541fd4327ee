#include "ui/qt/symbol_table.h"

#include <algorithm>
#include <array>
#include <string>

namespace rondora {

namespace {

constexpr auto kSymbols = std::to_array<SymbolEntry>({
    {"star.fill", "star-fill"},
    {"heart.fill", "heart-fill"},
    {"bolt.fill", "lightning-fill"},
    {"leaf.fill", "leaf-fill"},
    {"flame.fill", "fire"},
    {"drop.fill", "droplet-fill"},
    {"moon.fill", "moon-fill"},
    {"sun.max.fill", "sun-fill"},
    {"cloud.fill", "cloud-fill"},
    {"snowflake", "snow"},
    {"sparkles", "stars"},
    {"wand.and.stars", "magic"},
    {"paintbrush.fill", "brush-fill"},
    {"paintpalette.fill", "palette-fill"},
    {"pencil", "pencil"},
    {"bookmark.fill", "bookmark-fill"},
    {"tag.fill", "tag-fill"},
    {"flag.fill", "flag-fill"},
    {"bell.fill", "bell-fill"},
    {"gift.fill", "gift-fill"},
    {"crown.fill", "crown-fill"},
    {"puzzlepiece.fill", "puzzle-fill"},
    {"gamecontroller.fill", "controller"},
    {"headphones", "headphones"},
    {"music.note", "music-note"},
    {"camera.fill", "camera-fill"},
    {"paperplane.fill", "send-fill"},
    {"tortoise.fill", {}, U'\x1F422', GlyphStyle::lineDrawn},
    {"hare.fill", {}, U'\x1F407', GlyphStyle::lineDrawn},
    {"ant.fill", {}, U'\x1F41C', GlyphStyle::thin},
    {"ladybug.fill", "bug-fill"},
    {"globe", "globe"},
    {"lightbulb.fill", "lightbulb-fill"},
    {"cube.fill", "box-fill"},
    {"atom", {}, U'\x269B', GlyphStyle::thin},
    {"book.fill", "book-fill"},
    {"graduationcap.fill", "mortarboard-fill"},
    {"cup.and.saucer.fill", "cup-hot-fill"},
    {"airplane", "airplane"},
    {"car.fill", "car-front-fill"},
    {"bicycle", "bicycle"},
    {"house.fill", "house-fill"},
    {"mountain.2.fill", "mountains-fill"},
    {"binoculars.fill", "binoculars-fill"},
    {"theatermasks.fill", {}, U'\x1F3AD', GlyphStyle::lineDrawn},
    {"die.face.5.fill", "dice-5-fill"},
    {"guitars.fill", {}, U'\x1F3B8', GlyphStyle::thin},
    {"film.fill", "film"},
    {"tram.fill", "train-front-fill"},
    {"safari", "browser-safari"},
    {"terminal", "terminal"},
    {"folder.fill", "folder-fill"},
    {"gearshape.fill", "gear-fill"},
    {"note.text", "sticky"},
    {"rectangle.portrait.and.arrow.right", "box-arrow-right"},
    {"cat.fill", {}, U'\x1F408', GlyphStyle::lineDrawn},
    {"command", "command"},
});

constexpr std::string_view kFilled = ".fill";

std::optional<SymbolEntry> findExactly(std::string_view name) {
  const auto found =
      std::find_if(kSymbols.begin(), kSymbols.end(), [&](const auto& entry) { return entry.name == name; });
  if (found == kSymbols.end()) return std::nullopt;
  return *found;
}

}  // namespace

std::span<const SymbolEntry> symbolTable() { return kSymbols; }

std::optional<SymbolEntry> findSymbol(std::string_view name) {
  if (auto entry = findExactly(name)) return entry;
  if (name.ends_with(kFilled)) return findExactly(name.substr(0, name.size() - kFilled.size()));
  return findExactly(std::string(name).append(kFilled));
}

}  // namespace rondora
