#pragma once

#include <nlohmann/json.hpp>
#include <string>
#include <vector>

namespace rondora::live {

/// Configuration documents, built without the program's own code.
using Document = nlohmann::ordered_json;

struct Hotkey {
  int keyCode = -1;
  int carbonModifiers = 0;
};

inline constexpr int kControl = 0x1000, kOption = 0x800;
inline constexpr int kShiftFlag = 0x20000, kControlFlag = 0x40000, kOptionFlag = 0x80000, kCommandFlag = 0x100000;
inline constexpr Hotkey kControlAltSpace{49, kControl | kOption};
inline constexpr Hotkey kControlAltB{11, kControl | kOption};
inline constexpr Hotkey kF9{101, 0};

Document snippetItem(const std::string& text);
/// `modifiers` are event flags.
Document keystrokeItem(int keyCode, int modifiers);
Document applicationItem(const std::string& id);
/// `count` items that put "NAME 0", "NAME 1", … on the clipboard.
std::vector<Document> snippetItems(const std::string& name, int count);

/// A ring without an opening animation, items in the given order.
Document menu(const std::string& name, Hotkey hotkey, std::vector<Document> items, double rotationDegrees = 0);
Document document(std::vector<Document> menus);

}  // namespace rondora::live
