#pragma once

#include <map>
#include <string>
#include <utility>
#include <vector>

#include "doubles/fake_accessibility.h"

namespace rondora {

/// One item of a menu; with items of its own it opens a submenu.
struct FakeMenuItem {
  std::string title;
  std::string shortcut = "";
  std::int64_t modifiers = 0;
  std::vector<FakeMenuItem> items = {};
  bool isEnabled = true;
};

/// The menu bars of applications. Elements are named by title, the menu below one by "title…".
class FakeMenus {
 public:
  explicit FakeMenus(FakeAccessibility& accessibility) : accessibility_(accessibility) {}

  /// The first title is the system's own menu.
  void publish(std::int32_t processIdentifier, const std::vector<FakeMenuItem>& titles) {
    accessibility_.applicationElement(processIdentifier)->attributesByName["AXMenuBar"] =
        AXElementRef(menu("", titles));
  }
  /// The last one made of that name.
  FakeAccessibility::Element element(const std::string& name) const { return elements_.at(name); }

 private:
  AXElementRef menu(const std::string& owner, const std::vector<FakeMenuItem>& items) {
    std::vector<AXElementRef> children;
    for (const FakeMenuItem& each : items) children.push_back(item(each));
    const auto element = elements_[owner + "…"] = accessibility_.makeElement(owner + "…");
    element->attributesByName["AXChildren"] = std::move(children);
    return element;
  }
  AXElementRef item(const FakeMenuItem& item) {
    const auto element = elements_[item.title] = accessibility_.makeElement(item.title);
    auto& values = element->attributesByName;
    values["AXTitle"] = item.title;
    if (!item.shortcut.empty()) values["AXMenuItemCmdChar"] = item.shortcut;
    values["AXMenuItemCmdModifiers"] = item.modifiers;
    values["AXEnabled"] = item.isEnabled;
    if (!item.items.empty()) values["AXChildren"] = std::vector<AXElementRef>{menu(item.title, item.items)};
    return element;
  }

  FakeAccessibility& accessibility_;
  std::map<std::string, FakeAccessibility::Element> elements_;
};

}  // namespace rondora
