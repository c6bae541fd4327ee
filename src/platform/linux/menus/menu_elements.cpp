#include "platform/linux/menus/menu_elements.h"

#include <algorithm>
#include <map>
#include <utility>
#include <vector>

#include "platform/ax_names.h"
#include "platform/linux/menus/call_batch.h"

namespace rondora::menus {
namespace {

/// An element without values.
class BareElement final : public AXElement {
 public:
  enum class Meaning {
    placeholder,  // where other systems have a menu of their own
    unreadable,   // items that could not be read: every read fails
  };

  explicit BareElement(Meaning meaning) : meaning_(meaning) {}

  void setMessagingTimeout(double /*seconds*/) override {}
  std::optional<AXValue> attribute(std::string_view /*name*/) const override { return std::nullopt; }
  std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const override {
    if (meaning_ == Meaning::unreadable) return std::nullopt;
    return std::vector<std::optional<AXValue>>(names.size());
  }
  bool isSettable(std::string_view /*name*/) const override { return false; }
  bool setAttribute(std::string_view /*name*/, const AXValue& /*value*/) override { return false; }
  bool perform(std::string_view /*action*/) override { return false; }
  std::uint32_t windowNumber() const override { return 0; }

 private:
  Meaning meaning_;
};

class MenuElement final : public AXElement {
 public:
  enum class Kind { bar, item, menu };  // a menu and its item share the node

  MenuElement(std::shared_ptr<MenuSource> source, MenuNodeRef node, Kind kind)
      : source_(std::move(source)), node_(std::move(node)), kind_(kind) {}

  void setMessagingTimeout(double seconds) override { timeout_ = seconds; }

  std::optional<AXValue> attribute(std::string_view name) const override {
    if (name == ax::kChildren) return children();
    return kind_ == Kind::item ? itemAttribute(name) : std::nullopt;
  }

  std::optional<std::vector<std::optional<AXValue>>> attributes(
      std::span<const std::string_view> names) const override {
    std::vector<std::optional<AXValue>> values;
    for (const std::string_view name : names) {
      values.push_back(attribute(name));
      if (name == ax::kChildren && isToRead()) return std::nullopt;
    }
    return values;
  }

  bool isSettable(std::string_view /*name*/) const override { return false; }
  bool setAttribute(std::string_view /*name*/, const AXValue& /*value*/) override { return false; }
  bool perform(std::string_view action) override {
    return kind_ == Kind::item && action == ax::kPress && source_->press(*node_, timeout_);
  }
  std::uint32_t windowNumber() const override { return 0; }

  bool isToRead() const { return kind_ != Kind::item && !node_->items; }
  const std::shared_ptr<MenuSource>& source() const { return source_; }
  const MenuNodeRef& node() const { return node_; }

 private:
  std::optional<AXValue> itemAttribute(std::string_view name) const {
    if (name == ax::kTitle) return AXValue(node_->title);
    if (name == ax::kEnabled) return AXValue(node_->isEnabled);
    if (!node_->key) return std::nullopt;
    if (name == ax::kMenuItemCmdChar) return AXValue(node_->key->character);
    if (name == ax::kMenuItemCmdModifiers) return AXValue(node_->key->modifiers);
    return std::nullopt;
  }

  std::optional<AXValue> children() const {
    if (kind_ == Kind::item && !node_->hasSubmenu) return std::nullopt;
    if (kind_ == Kind::item) return AXValue(std::vector<AXElementRef>{make(node_, Kind::menu)});
    if (!node_->items) source_->expand(std::span(&node_, 1), timeout_);
    if (!node_->items) return std::nullopt;
    std::vector<AXElementRef> elements;
    if (kind_ == Kind::bar) elements.push_back(std::make_shared<BareElement>(BareElement::Meaning::placeholder));
    for (const MenuNodeRef& item : *node_->items) elements.push_back(make(item, Kind::item));
    if (node_->isCut) elements.push_back(std::make_shared<BareElement>(BareElement::Meaning::unreadable));
    return AXValue(std::move(elements));
  }

  AXElementRef make(const MenuNodeRef& node, Kind kind) const {
    return std::make_shared<MenuElement>(source_, node, kind);
  }

  std::shared_ptr<MenuSource> source_;
  MenuNodeRef node_;
  Kind kind_;
  double timeout_ = kMaxRequestSeconds;
};

}  // namespace

AXElementRef makeMenuBarElement(std::shared_ptr<MenuSource> source, MenuNodeRef bar) {
  return std::make_shared<MenuElement>(std::move(source), std::move(bar), MenuElement::Kind::bar);
}

void prepareMenus(std::span<const AXElementRef> elements, std::span<const std::string_view> attributes,
                  double seconds) {
  if (std::find(attributes.begin(), attributes.end(), ax::kChildren) == attributes.end()) return;
  std::map<std::shared_ptr<MenuSource>, std::vector<MenuNodeRef>> levels;
  for (const AXElementRef& element : elements) {
    const auto* menu = dynamic_cast<const MenuElement*>(element.get());
    if (menu && menu->isToRead()) levels[menu->source()].push_back(menu->node());
  }
  for (const auto& [source, nodes] : levels) source->expand(nodes, seconds);
}

}  // namespace rondora::menus
