#include "desktop/document.h"

#include <algorithm>
#include <cstdint>

namespace rondora::live {
namespace {

/// A new one for each call.
std::string menuId() {
  static std::int64_t number = 100'000'000'000;  // twelve digits
  return "00000000-0000-4000-8000-" + std::to_string(++number);
}

Document item(const std::string& title, Document action) {
  return {{"title", title}, {"icon", "star.fill"}, {"action", std::move(action)}};
}

}  // namespace

Document snippetItem(const std::string& text) { return item(text, {{"snippet", {{"text", text}}}}); }

Document keystrokeItem(int keyCode, int modifiers) {
  return item("Key " + std::to_string(keyCode), {{"keystroke", {{"keyCode", keyCode}, {"modifiers", modifiers}}}});
}

Document applicationItem(const std::string& id) { return item(id, {{"launchApp", {{"bundleIdentifier", id}}}}); }

std::vector<Document> snippetItems(const std::string& name, int count) {
  std::vector<Document> items;
  for (int i = 0; i < count; ++i) items.push_back(snippetItem(name + ' ' + std::to_string(i)));
  return items;
}

Document menu(const std::string& name, Hotkey hotkey, std::vector<Document> items, double rotationDegrees) {
  for (std::size_t i = 0; i < items.size(); ++i) {
    items[i]["sectorIndex"] = i;
    items[i]["color"] = i % 2 == 0 ? "#FF2D55" : "#FF2D54";  // the program recolours items of one colour
  }
  return {{"id", menuId()},
          {"name", name},
          {"hotkey", {{"keyCode", hotkey.keyCode}, {"carbonModifiers", hotkey.carbonModifiers}}},
          {"items", std::move(items)},
          {"menuRadius", 150},
          {"iconDistance", 0.5},
          {"rotationDegrees", rotationDegrees},
          {"pawDecorationEnabled", false},
          {"animationDuration", 0}};
}

Document document(std::vector<Document> menus) {
  // Both special menus are present and disabled, so that the program adds none.
  for (const char* kind : {"runningApps", "appCommands"}) {
    const bool isThere = std::any_of(menus.begin(), menus.end(),
                                     [kind](const Document& given) { return given.value("kind", "") == kind; });
    if (isThere) continue;
    Document special = menu(kind, {}, {});
    special["kind"] = kind;
    special["runningAppsMenuEnabled"] = false;
    menus.push_back(std::move(special));
  }
  return {{"schemaVersion", 3}, {"menus", std::move(menus)}, {"language", "en"}, {"hapticFeedbackEnabled", false}};
}

}  // namespace rondora::live
