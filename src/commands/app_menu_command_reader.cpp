#include "commands/app_menu_command_reader.h"

#include <algorithm>
#include <array>
#include <iterator>
#include <span>
#include <string_view>
#include <utility>

#include "base/unicode.h"
#include "platform/ax_names.h"

namespace rondora {
namespace {

using Elements = std::vector<AXElementRef>;
using Path = std::vector<std::string>;
using Reader = AppMenuCommandReader;
using Names = std::span<const std::string_view>;

constexpr std::array<std::string_view, 1> kMenuAttributes = {ax::kChildren};
constexpr std::array<std::string_view, 2> kTopMenuAttributes = {ax::kTitle, ax::kChildren};
constexpr std::array<std::string_view, 5> kItemAttributes = {ax::kTitle, ax::kMenuItemCmdChar,
                                                             ax::kMenuItemCmdModifiers, ax::kEnabled, ax::kChildren};

template <class T>
std::optional<T> typed(std::optional<AXValue>& value) {
  T* found = value ? std::get_if<T>(&*value) : nullptr;
  return found ? std::optional(std::move(*found)) : std::nullopt;
}

std::string shortcutCharacter(const std::string& text) {
  constexpr std::string_view kFirstPrivate = "\uE000";
  constexpr std::string_view kLastPrivate = "\uF8FF";
  const std::string_view scalar = std::string_view(text).substr(0, kFirstPrivate.size());
  const bool isPrivate = scalar >= kFirstPrivate && scalar <= kLastPrivate;
  const bool isOneCharacter = !text.empty() && firstCharacter(text).size() == text.size();
  return isOneCharacter && !isPrivate ? upperCased(text) : text;
}

/// Menus on the same level that lie in one item.
struct OpenMenus {
  Path path;
  Elements menus;
};

struct ReadItem {
  AppMenuItemInfo info;
  Elements children;
};

/// One reading of an application's menus, until its deadline or a limit.
class MenuReading {
 public:
  MenuReading(Accessibility& accessibility, const Clock& clock, double budget, const std::function<bool()>& isCancelled)
      : accessibility_(accessibility), clock_(clock), isCancelled_(isCancelled), deadline_(clock.uptime() + budget) {}

  bool hasGap() const { return hasGap_; }

  std::vector<Reader::TopMenu> topMenus(std::int32_t processIdentifier) {
    const AXElementRef bar =
        value<AXElementRef>(accessibility_.application(processIdentifier), ax::kMenuBar).value_or(nullptr);
    if (!bar) hasGap_ = true;
    Elements titles = bar && !isOver() ? children(bar) : Elements();
    if (!titles.empty()) titles.erase(titles.begin());
    announce(titles, kTopMenuAttributes);
    std::vector<Reader::TopMenu> menus;
    for (const AXElementRef& element : titles) {
      if (isOver()) break;
      appendTopMenu(element, menus);
    }
    return menus;
  }

  std::optional<AppMenuItemInfo> walk(std::int32_t processIdentifier, const Path& path) {
    auto menus = topMenus(processIdentifier);
    const auto top =
        std::find_if(menus.begin(), menus.end(), [&](const auto& menu) { return menu.title == path.front(); });
    if (top == menus.end()) return std::nullopt;
    std::optional<ReadItem> item = ReadItem{{}, std::move(top->children)};
    for (auto title = std::next(path.begin()); title != path.end() && item; ++title) {
      item = firstItem(*title, item->children, title == std::next(path.begin()));
    }
    if (!item || item->info.hasSubmenu) return std::nullopt;
    item->info.path = path;
    return std::move(item->info);
  }

  Reader::Crawl crawl(std::int32_t processIdentifier, int maxDepth) {
    if (maxDepth < 1) return {};
    std::vector<OpenMenus> level;
    for (auto& menu : topMenus(processIdentifier)) level.push_back({{menu.title}, std::move(menu.children)});
    Reader::Crawl result;
    for (int depth = 0; depth < maxDepth && !level.empty(); ++depth) level = readLevel(level, result.items);
    result.isComplete = level.empty() && !hasGap_;
    return result;
  }

 private:
  template <class T>
  std::optional<T> value(const AXElementRef& element, std::string_view name) {
    auto values = read(element, Names(&name, 1));
    return values ? typed<T>(values->front()) : std::nullopt;
  }
  Elements children(const AXElementRef& element) {
    return value<Elements>(element, ax::kChildren).value_or(Elements());
  }

  /// One value for each name, or nothing.
  std::optional<std::vector<std::optional<AXValue>>> read(const AXElementRef& element, Names names) {
    if (element) {
      element->setMessagingTimeout(Reader::kMessagingTimeout);
      auto values = element->attributes(names);
      if (values && values->size() == names.size()) return values;
    }
    hasGap_ = true;
    return std::nullopt;
  }

  /// Tells the system what is read next. It gets half of the time that is left, so that enough remains to read what it
  /// fetched.
  void announce(const Elements& elements, Names attributes) {
    const double secondsLeft = deadline_ - clock_.uptime();
    if (elements.empty() || secondsLeft <= 0) return;
    const auto count = std::min(elements.size(), Reader::kMaxItems - itemCount_);
    accessibility_.prepareToRead(std::span(elements).first(count), attributes, secondsLeft / 2);
  }

  bool isOver() {
    const bool isFull = itemCount_ >= Reader::kMaxItems || byteCount_ >= Reader::kMaxBytes;
    const bool isOver = isFull || clock_.uptime() >= deadline_ || (isCancelled_ && isCancelled_());
    hasGap_ = hasGap_ || isOver;
    return isOver;
  }

  void count(const AppMenuItemInfo& item, const Elements& children) {
    ++itemCount_;
    byteCount_ +=
        item.title.size() + item.shortcutCharacter.value_or("").size() + children.size() * sizeof(AXElementRef);
    for (const std::string& title : item.path) byteCount_ += title.size();
  }

  void appendTopMenu(const AXElementRef& element, std::vector<Reader::TopMenu>& menus) {
    auto title = value<std::string>(element, ax::kTitle);
    if (!title || title->empty() || isOver()) return;
    ++itemCount_;
    byteCount_ += title->size();
    menus.push_back({*std::move(title), children(element)});
  }

  std::optional<ReadItem> readItem(const AXElementRef& element) {
    auto values = read(element, kItemAttributes);
    if (!values) return std::nullopt;
    ReadItem item;
    item.info.element = element;
    item.info.title = typed<std::string>((*values)[0]).value_or("");
    if (auto text = typed<std::string>((*values)[1])) item.info.shortcutCharacter = shortcutCharacter(*text);
    item.info.shortcutModifiers = typed<std::int64_t>((*values)[2]).value_or(0);
    item.info.isEnabled = typed<bool>((*values)[3]).value_or(true);
    item.children = typed<Elements>((*values)[4]).value_or(Elements());
    item.info.hasSubmenu = !item.children.empty();
    return item;
  }

  /// An empty menu of the menu bar tells nothing: its application fills it when it is shown. A submenu may be empty.
  Elements itemsOf(const AXElementRef& menu, bool isInMenuBar) {
    Elements items = children(menu);
    if (isInMenuBar && items.empty()) hasGap_ = true;
    return items;
  }

  std::optional<ReadItem> firstItem(const std::string& title, const Elements& menus, bool areInMenuBar) {
    announce(menus, kMenuAttributes);
    for (const AXElementRef& menu : menus) {
      if (isOver()) return std::nullopt;
      const Elements elements = itemsOf(menu, areInMenuBar);
      announce(elements, kItemAttributes);
      for (const AXElementRef& element : elements) {
        if (isOver()) return std::nullopt;
        auto item = readItem(element);
        if (item) count(item->info, item->children);
        if (item && item->info.title == title) return item;
      }
    }
    return std::nullopt;
  }

  /// Appends the items of a level and returns the next one.
  std::vector<OpenMenus> readLevel(const std::vector<OpenMenus>& level, std::vector<AppMenuItemInfo>& items) {
    Elements all;
    for (const OpenMenus& open : level) all.insert(all.end(), open.menus.begin(), open.menus.end());
    announce(all, kMenuAttributes);
    std::vector<OpenMenus> next;
    for (const OpenMenus& open : level) {
      for (const AXElementRef& menu : open.menus) {
        if (isOver()) return next;
        readMenu(menu, open.path, items, next);
      }
    }
    return next;
  }

  void readMenu(const AXElementRef& menu, const Path& path, std::vector<AppMenuItemInfo>& items,
                std::vector<OpenMenus>& next) {
    const Elements elements = itemsOf(menu, path.size() == 1);
    announce(elements, kItemAttributes);
    for (const AXElementRef& element : elements) {
      if (isOver()) return;
      auto item = readItem(element);
      if (!item) continue;
      item->info.path = path;
      item->info.path.push_back(item->info.title);
      count(item->info, item->children);
      if (item->info.hasSubmenu) next.push_back({item->info.path, std::move(item->children)});
      items.push_back(std::move(item->info));
    }
  }

  Accessibility& accessibility_;
  const Clock& clock_;
  const std::function<bool()>& isCancelled_;
  double deadline_;
  std::size_t itemCount_ = 0;
  std::size_t byteCount_ = 0;
  /// Something was not read.
  bool hasGap_ = false;
};

}  // namespace

std::vector<AppMenuCommandReader::TopMenu> AppMenuCommandReader::topMenus(std::int32_t processIdentifier) {
  MenuReading reading(accessibility_, clock_, kWalkBudget, isCancelled_);
  auto menus = reading.topMenus(processIdentifier);
  hasGap_ = reading.hasGap();
  return menus;
}

std::optional<AppMenuItemInfo> AppMenuCommandReader::walk(std::int32_t processIdentifier, const Path& path,
                                                          double budget) {
  hasGap_ = false;
  if (path.size() < 2) return std::nullopt;
  MenuReading reading(accessibility_, clock_, budget, isCancelled_);
  auto item = reading.walk(processIdentifier, path);
  hasGap_ = reading.hasGap();
  return item;
}

std::optional<AppMenuItemInfo> AppMenuCommandReader::item(std::int32_t processIdentifier, const Path& path,
                                                          const std::optional<MenuShortcut>& shortcut, bool isTrusted) {
  hasGap_ = false;
  if (!isTrusted) return std::nullopt;
  auto atPath = walk(processIdentifier, path);
  if (atPath || !shortcut) return atPath;
  auto items = readItems(processIdentifier, kSearchBudget, kSearchDepth).items;
  const auto found = std::find_if(items.begin(), items.end(),
                                  [&](const AppMenuItemInfo& item) { return item.shortcut() == shortcut; });
  return found == items.end() ? std::nullopt : std::optional(std::move(*found));
}

AppMenuCommandReader::Crawl AppMenuCommandReader::readItems(std::int32_t processIdentifier, double budget,
                                                            int maxDepth) {
  MenuReading reading(accessibility_, clock_, budget, isCancelled_);
  auto result = reading.crawl(processIdentifier, maxDepth);
  hasGap_ = reading.hasGap();
  return result;
}

}  // namespace rondora
