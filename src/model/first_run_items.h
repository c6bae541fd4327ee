#pragma once

#include <array>
#include <string_view>

namespace rondora {

/// An item of the first-run document's main menu.
struct FirstRunItem {
  std::string_view title;
  std::string_view icon;
  std::string_view bundleIdentifier;
};

/// In the order of their sectors; the colours are the palette's.
inline constexpr std::array<FirstRunItem, 6> kFirstRunItems = {{
    {"Safari", "safari", "com.apple.Safari"},
    {"Terminal", "terminal", "com.apple.Terminal"},
    {"Finder", "folder.fill", "com.apple.finder"},
    {"Settings", "gearshape.fill", "com.apple.systempreferences"},
    {"Music", "music.note", "com.apple.Music"},
    {"Notes", "note.text", "com.apple.Notes"},
}};

}  // namespace rondora
