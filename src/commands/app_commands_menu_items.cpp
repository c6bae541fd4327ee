#include "commands/app_commands_menu_items.h"

#include <array>
#include <cstdint>
#include <string_view>

#include "model/palette.h"

namespace rondora {
namespace {

/// FNV-1a over two 64-bit halves with different offsets.
class StableHash {
 public:
  void add(std::string_view text) {
    add(static_cast<std::uint64_t>(text.size()));  // so that neighbouring texts cannot run together
    for (const char c : text) addByte(static_cast<std::uint8_t>(c));
  }
  void add(std::uint64_t number) {
    for (int i = 0; i < 8; ++i) addByte(static_cast<std::uint8_t>(number >> (8 * i)));
  }

  Uuid uuid() const {
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t i = 0; i < 16; ++i) bytes[i] = static_cast<std::uint8_t>(halves_[i / 8] >> (8 * (i % 8)));
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x80);  // version 8: made from the content
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return Uuid::fromBytes(bytes);
  }

 private:
  void addByte(std::uint8_t byte) {
    for (std::uint64_t& half : halves_) half = (half ^ byte) * 0x100000001B3u;
  }

  std::array<std::uint64_t, 2> halves_{0xCBF29CE484222325u, 0x6C62272E07BB0142u};
};

}  // namespace

Uuid AppCommandsMenuItems::stableID(const PieSubAction& command) {
  StableHash hash;
  hash.add(static_cast<std::uint64_t>(command.kind));
  hash.add(command.title);
  hash.add(command.icon);
  hash.add(static_cast<std::uint64_t>(command.menuPath.size()));
  for (const std::string& title : command.menuPath) hash.add(title);
  if (command.shortcut) {
    hash.add(command.shortcut->character);
    hash.add(static_cast<std::uint64_t>(command.shortcut->modifiers));
  }
  return hash.uuid();
}

std::vector<PieMenuItem> AppCommandsMenuItems::build(const std::vector<PieSubAction>& commands) {
  std::vector<PieMenuItem> items;
  items.reserve(commands.size());
  for (std::size_t i = 0; i < commands.size(); ++i) {
    PieMenuItem item;
    item.id = stableID(commands[i]);
    item.title = commands[i].title;
    item.icon = commands[i].icon;
    item.color = kItemColorPalette[i % kItemColorPalette.size()];
    item.sectorIndex = static_cast<std::int64_t>(i);
    items.push_back(std::move(item));
  }
  return items;
}

}  // namespace rondora
