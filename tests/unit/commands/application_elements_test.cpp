#include <algorithm>
#include <sstream>

#include "commands/app_menu_command_reader.h"
#include "commands/window_ax.h"
#include "doubles/fake_menus.h"
#include "doubles/stories.h"
#include "doubles/virtual_time.h"

namespace rondora {
namespace {

using Elements = std::vector<AXElementRef>;

constexpr std::int32_t kEditor = 7;

/// The menus and windows of one application. Observing "changes", "calls" or "seconds" starts them anew.
struct ElementsStory : Story {
  using W = const Words&;

  ElementsStory() {
    accessibility.calls.clock = &time;
    using enum WindowTile;
    const std::map<std::string, WindowTile> tiles = {{"left", left},     {"right", right}, {"top", top},
                                                     {"bottom", bottom}, {"fill", fill},   {"center", center}};
    actions = {
        {"item",
         [this](W w) {
           add({w[0], w.size() > 1 ? w[1] : "", w.size() > 2 ? std::stoi(w[2]) : 0});
         }},
        {"window", [this](W w) { windows[w[0]] = accessibility.addWindow(kEditor, w[0], 1, std::nullopt, w[1]); }},
        {"area",
         [this](W w) {
           areas.push_back({point(w[0]), size(w[1])});
         }},
        {"set", [this](W w) { element(w[0])->attributesByName[w[1]] = value(w[1], w.size() > 2 ? w[2] : ""); }},
        {"unset", [this](W w) { element(w[0])->attributesByName.erase(w[1]); }},
        {"settable",
         [this](W w) {
           element(w[0])->settable = {w.begin() + 1, w.end()};
         }},
        {"refuse",
         [this](W w) {
           element(w[0])->refusedActions = {w.begin() + 1, w.end()};
         }},
        {"hang", [this](W w) { element(w[0])->hangs = w.size() == 1; }},
        {"lengthen", [this](W w) { element(w[0])->attributesByName["AXTitle"] = std::string(std::stoul(w[1]), 'x'); }},
        {"opens", [this](W w) { element(w[0])->attributesByName["AXChildren"] = Elements{elementOrNull(w[1])}; }},
        {"repeat", [this](W w) { repeat(*element(w[0]), *element(w[1]), std::stoul(w[2])); }},
        {"slow", [this](W w) { accessibility.calls.seconds = std::stod(w[0]); }},
        {"together", [this](W w) { accessibility.calls.elementsAtOnce = std::stoul(w[0]); }},
        {"walk", [this](W w) { result = inWords(reader.walk(kEditor, w)); }},
        {"find",
         [this](W w) {
           result = inWords(reader.item(kEditor, {"Edit", w[0]}, shortcut(w), w.size() < 4));
         }},
        {"crawl", [this](W w) { crawl(std::stod(w[0]), std::stoi(w[1])); }},
        {"tile", [this, tiles](W w) { result = yesOrNo(WindowAX::tile(*element(w[0]), tiles.at(w[1]), areas)); }},
        {"toggle", [this](W w) { result = yesOrNo(WindowAX::toggleFullScreen(*element(w[0]))); }}};
    observations = {{"result", [this] { return result; }},
                    {"target", [this] { return nameOf(WindowAX(accessibility).targetWindow(kEditor)); }},
                    {"movable", [this] { return yesOrNo(WindowAX::canMoveAndResize(*element("w"))); }},
                    {"full-screen", [this] { return std::to_string(int(WindowAX::fullScreenState(*element("w")))); }},
                    {"changes", [this] { return joined(std::exchange(accessibility.journal, {})); }},
                    {"calls", [this] { return std::to_string(std::exchange(accessibility.calls.count, 0)); }},
                    {"seconds", [this] { return inWords(time.uptime() - std::exchange(start, time.uptime())); }}};
  }

  /// The title is the path of the item.
  void add(FakeMenuItem item) {
    std::vector<FakeMenuItem>* items = &titles;
    for (std::size_t slash = 0; (slash = item.title.find('/')) != std::string::npos; item.title.erase(0, slash + 1)) {
      const std::string title = item.title.substr(0, slash);
      const auto found =
          std::find_if(items->begin(), items->end(), [&](const auto& each) { return each.title == title; });
      items = found == items->end() ? &items->emplace_back(FakeMenuItem{title}).items : &found->items;
    }
    items->push_back(std::move(item));
    menus.publish(kEditor, titles);
  }
  void crawl(double budget, int maxDepth) {
    const auto [items, isComplete] = reader.readItems(kEditor, budget, maxDepth);
    Words words{isComplete ? "complete" : "cut"};
    for (const AppMenuItemInfo& item : items) words.push_back(inWords(item));
    result = joined(words);
    if (result.size() > 1000) result = words.front() + " " + std::to_string(items.size());
  }
  static std::string inWords(double number) { return (std::ostringstream() << number).str(); }
  static std::string inWords(const std::optional<AppMenuItemInfo>& item) {
    if (!item) return "none";
    std::string text = item->path.front();
    for (std::size_t i = 1; i < item->path.size(); ++i) text += "/" + item->path[i];
    if (item->shortcutCharacter) text += "=" + *item->shortcutCharacter + std::to_string(item->shortcutModifiers);
    return text + (item->hasSubmenu ? ">" : "") + (item->isEnabled ? "" : "(disabled)");
  }
  static std::string nameOf(const AXElementRef& ref) { return ref ? dynamic_cast<FakeAXElement&>(*ref).name : "none"; }
  static std::optional<MenuShortcut> shortcut(W w) {
    return w.size() > 2 ? std::optional(MenuShortcut{w[1], std::stoi(w[2])}) : std::nullopt;
  }
  static Point point(const std::string& text) { return {std::stod(text), std::stod(text.substr(text.find(',') + 1))}; }
  static Size size(const std::string& text) { return {point(text).x, point(text).y}; }
  /// A window, "application", or by its path an item or, with "/" behind it, a menu.
  FakeAccessibility::Element element(const std::string& name) {
    if (windows.contains(name)) return windows.at(name);
    if (name == "application") return accessibility.applicationElement(kEditor);
    const std::string path = name.ends_with('/') ? name.substr(0, name.size() - 1) : name;
    return menus.element(path.substr(path.rfind('/') + 1) + (name.ends_with('/') ? "…" : ""));
  }
  AXValue value(const std::string& attribute, const std::string& text) {
    if (attribute == "AXPosition") return point(text);
    if (attribute == "AXSize") return size(text);
    if (attribute == "AXTitle" || attribute == "AXSubrole") return text;
    if (!attribute.ends_with("Window")) return text == "1";
    return elementOrNull(text);
  }
  AXElementRef elementOrNull(const std::string& name) { return name == "none" ? nullptr : element(name); }
  static void repeat(FakeAXElement& menu, const FakeAXElement& item, std::size_t count) {
    Elements copies;
    for (std::size_t i = 0; i < count; ++i) copies.push_back(std::make_shared<FakeAXElement>(item));
    menu.attributesByName["AXChildren"] = std::move(copies);
  }

  VirtualTime time;
  FakeAccessibility accessibility;
  FakeMenus menus{accessibility};
  std::vector<FakeMenuItem> titles;
  AppMenuCommandReader reader{accessibility, time};
  std::map<std::string, FakeAccessibility::Element> windows;
  std::vector<Rect> areas;
  double start = time.uptime();
  std::string result;
};

TEST(AppMenuCommandReader, Stories) { playStories<ElementsStory>("application_menus"); }
TEST(WindowAX, Stories) { playStories<ElementsStory>("window_placement"); }

}  // namespace
}  // namespace rondora
