#include "model/pie_menu_item.h"

#include <algorithm>
#include <vector>

#include "base/unicode.h"

namespace rondora {
namespace {

constexpr bool isAsciiCapitalOrDigit(char c) { return (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9'); }

}  // namespace

const std::array<std::string_view, 49> PieMenuItem::kUnassignedSymbols = {"star.fill",
                                                                          "heart.fill",
                                                                          "bolt.fill",
                                                                          "leaf.fill",
                                                                          "flame.fill",
                                                                          "drop.fill",
                                                                          "moon.fill",
                                                                          "sun.max.fill",
                                                                          "cloud.fill",
                                                                          "snowflake",
                                                                          "sparkles",
                                                                          "wand.and.stars",
                                                                          "paintbrush.fill",
                                                                          "paintpalette.fill",
                                                                          "pencil",
                                                                          "bookmark.fill",
                                                                          "tag.fill",
                                                                          "flag.fill",
                                                                          "bell.fill",
                                                                          "gift.fill",
                                                                          "crown.fill",
                                                                          "puzzlepiece.fill",
                                                                          "gamecontroller.fill",
                                                                          "headphones",
                                                                          "music.note",
                                                                          "camera.fill",
                                                                          "paperplane.fill",
                                                                          "tortoise.fill",
                                                                          "hare.fill",
                                                                          "ant.fill",
                                                                          "ladybug.fill",
                                                                          "globe",
                                                                          "lightbulb.fill",
                                                                          "cube.fill",
                                                                          "atom",
                                                                          "book.fill",
                                                                          "graduationcap.fill",
                                                                          "cup.and.saucer.fill",
                                                                          "airplane",
                                                                          "car.fill",
                                                                          "bicycle",
                                                                          "house.fill",
                                                                          "mountain.2.fill",
                                                                          "binoculars.fill",
                                                                          "theatermasks.fill",
                                                                          "die.face.5.fill",
                                                                          "guitars.fill",
                                                                          "film.fill",
                                                                          "tram.fill"};

std::optional<std::string> PieMenuItem::normalizedCustomShortcut(const std::optional<std::string>& text) {
  if (!text) return std::nullopt;
  const std::string_view scalar = trimmed(*text);
  if (scalarCount(scalar) != 1) return std::nullopt;
  std::string upper = upperCased(scalar);
  if (upper.size() != 1 || !isAsciiCapitalOrDigit(upper.front())) return std::nullopt;
  return upper;
}

std::string PieMenuItem::randomUnassignedSymbol(const std::set<std::string, std::less<>>& avoiding,
                                                RandomSource& random) {
  std::vector<std::string_view> candidates;
  std::copy_if(kUnassignedSymbols.begin(), kUnassignedSymbols.end(), std::back_inserter(candidates),
               [&avoiding](std::string_view symbol) { return avoiding.find(symbol) == avoiding.end(); });
  if (candidates.empty()) candidates.assign(kUnassignedSymbols.begin(), kUnassignedSymbols.end());
  return std::string(candidates[random.below(candidates.size())]);
}

}  // namespace rondora
