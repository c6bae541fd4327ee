#include "ui/qt/painting/symbol_table.h"

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
    {"gamecontroller.fill", "gamecontroller-fill"},
    {"headphones", "headphones"},
    {"music.note", "music-note"},
    {"camera.fill", "camera-fill"},
    {"paperplane.fill", "send-fill"},
    {"tortoise.fill", "tortoise-fill"},
    {"hare.fill", "hare-fill"},
    {"ant.fill", "ant-fill"},
    {"ladybug.fill", "ladybug-fill"},
    {"globe", "globe"},
    {"lightbulb.fill", "lightbulb-fill"},
    {"cube.fill", "box-fill"},
    {"atom", "atom"},
    {"book.fill", "book-fill"},
    {"graduationcap.fill", "mortarboard-fill"},
    {"cup.and.saucer.fill", "cup-hot-fill"},
    {"airplane", "airplane"},
    {"car.fill", "car-front-fill"},
    {"bicycle", "bicycle"},
    {"house.fill", "house-fill"},
    {"mountain.2.fill", "mountains-fill"},
    {"binoculars.fill", "binoculars-fill"},
    {"theatermasks.fill", "theatermasks-fill"},
    {"die.face.5.fill", "dice-5-fill"},
    {"guitars.fill", "guitars-fill"},
    {"film.fill", "film"},
    {"tram.fill", "train-front-fill"},
    {"safari", "browser-safari"},
    {"terminal", "terminal"},
    {"folder.fill", "folder-fill"},
    {"gearshape.fill", "gear-fill"},
    {"note.text", "note-text"},
    {"rectangle.portrait.and.arrow.right", "box-arrow-right"},
    {"cat.fill", "cat-fill"},
    {"command", "command"},
    {"rectangle.lefthalf.filled", "window-left-half"},
    {"rectangle.righthalf.filled", "window-right-half"},
    {"rectangle.tophalf.filled", "window-top-half"},
    {"rectangle.bottomhalf.filled", "window-bottom-half"},
    {"rectangle.inset.filled", "window-filled"},
    {"rectangle.center.inset.filled", "window-center"},
    {"arrow.up.left.and.arrow.down.right", "arrows-angle-expand"},
    {"macwindow", "window"},
    {"eye.slash.fill", "eye-slash-fill"},
    {"minus", "dash-lg"},
    {"xmark", "x-lg"},
    {"power", "power"},
    {"envelope.fill", "envelope-fill"},
    {"calendar", "calendar3"},
    {"trash.fill", "trash-fill"},
    {"doc.fill", "file-earmark-fill"},
    {"doc.text", "file-earmark-text"},
    {"link", "link-45deg"},
    {"magnifyingglass", "search"},
    {"photo.fill", "image-fill"},
    {"video.fill", "camera-video-fill"},
    {"phone.fill", "telephone-fill"},
    {"message.fill", "chat-fill"},
    {"person.fill", "person-fill"},
    {"lock.fill", "lock-fill"},
    {"key.fill", "key-fill"},
    {"clock.fill", "clock-fill"},
    {"map.fill", "map-fill"},
    {"cart.fill", "cart-fill"},
    {"creditcard.fill", "credit-card-fill"},
    {"printer.fill", "printer-fill"},
    {"keyboard.fill", "keyboard-fill"},
    {"display", "display"},
    {"laptopcomputer", "laptop"},
    {"wifi", "wifi"},
    {"speaker.wave.2.fill", "volume-up-fill"},
    {"mic.fill", "mic-fill"},
    {"play.fill", "play-fill"},
    {"pause.fill", "pause-fill"},
    {"plus", "plus-lg"},
    {"checkmark", "check-lg"},
    {"checkmark.circle.fill", "check-circle-fill"},
    {"exclamationmark.triangle.fill", "exclamation-triangle-fill"},
    {"questionmark", "question-lg"},
    {"info.circle.fill", "info-circle-fill"},
    {"paperclip", "paperclip"},
    {"scissors", "scissors"},
    {"square.and.pencil", "pencil-square"},
    {"square.grid.2x2.fill", "grid-fill"},
    {"list.bullet", "list-ul"},
    {"chart.bar.fill", "bar-chart-fill"},
    {"hammer.fill", "hammer"},
    {"wrench.fill", "wrench"},
    {"cpu.fill", "cpu-fill"},
    {"tv.fill", "tv-fill"},
    {"option", "option"},
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
