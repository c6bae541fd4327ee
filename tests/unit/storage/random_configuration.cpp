#include "random_configuration.h"

#include <bit>
#include <cmath>

namespace rondora {
namespace {

/// Draws plain and awkward values alike.
class Generator {
 public:
  explicit Generator(RandomSource& random) : random_(random) {}

  bool boolean() { return random_.below(2) == 0; }
  std::uint64_t below(std::uint64_t bound) { return random_.below(bound); }
  double fraction() { return static_cast<double>(random_.next() >> 11) * 0x1p-53; }
  double between(double least, double most) { return least + fraction() * (most - least); }
  double anyDouble() {
    if (boolean()) return std::round(between(-500, 500)) / 4;
    const double any = std::bit_cast<double>(random_.next());
    return std::isfinite(any) ? any : -0.0;
  }
  std::int64_t anyInteger() {
    return boolean() ? static_cast<std::int64_t>(random_.below(200)) - 2 : static_cast<std::int64_t>(random_.next());
  }
  std::string text() {
    using std::string_view_literals::operator""sv;
    static constexpr std::string_view kPieces[] = {"a",    "Z", " ", "\"", "\\",     "/",      "\n", "\x01",
                                                   "\x7F", "é", "ж", "🐈",  "\u0301", "\u202E", "{}", "\0"sv};
    std::string result;
    for (std::uint64_t i = random_.below(8); i > 0; --i) result += kPieces[random_.below(std::size(kPieces))];
    return result;
  }
  template <class Make>
  auto maybe(Make make) {
    return boolean() ? std::optional(make()) : std::nullopt;
  }
  template <class Make>
  auto several(std::uint64_t most, Make make) {
    std::vector<decltype(make())> result;
    for (std::uint64_t i = random_.below(most + 1); i > 0; --i) result.push_back(make());
    return result;
  }

  MenuAction action() {
    switch (random_.below(6)) {
      case 0:
        return LaunchApp{text()};
      case 1:
        return OpenURL{text()};
      case 2:
        return Keystroke{anyInteger(), anyInteger()};
      case 3:
        return SystemShortcut{static_cast<MacOSSystemActionKind>(random_.below(6))};
      case 4:
        return Snippet{text()};
      default:
        return Unassigned{};
    }
  }

  PieMenuItem item() {
    PieMenuItem item;
    item.id = random_.uuid();
    item.title = text();
    item.icon = text();
    item.action = action();
    item.color = text() + std::to_string(random_.next());
    item.iconColor = maybe([this] { return text(); });
    item.sectorIndex = anyInteger();
    item.customShortcut = maybe([this] { return std::string(1, static_cast<char>('A' + random_.below(26))); });
    return item;
  }

  AppSubMenuEntry entry() {
    AppSubMenuEntry entry;
    entry.id = random_.uuid();
    entry.kind = static_cast<AppSubMenuEntry::Kind>(random_.below(12));
    entry.menuPath = several(3, [this] { return text(); });
    entry.menuPath.resize(entry.menuPath.size() + 2);
    entry.shortcutCharacter = maybe([this] { return text(); });
    entry.shortcutModifiers = maybe([this] { return anyInteger(); });
    entry.icon = maybe([this] { return text(); });
    return entry;
  }

  PieMenu menu() {
    PieMenu menu;
    menu.id = random_.uuid();
    menu.name = text();
    menu.hotkey = {anyInteger(), anyInteger()};
    menu.items = several(4, [this] { return item(); });
    if (menu.items.size() > 1) menu.items.back().sectorIndex = 1;
    menu.kind = static_cast<PieMenuKind>(random_.below(3));
    menu.runningAppsExcludedBundleIds =
        PieMenu::deduplicatedRunningAppsExcludedBundleIds(several(3, [this] { return text(); }));
    menu.runningAppsMenuEnabled = boolean();
    menu.trackpadFingerCount = anyInteger();
    drawLooks(menu);
    if (menu.kind == PieMenuKind::appCommands) menu.appCommandsDefaultEntries = {entry(), entry()};
    if (menu.kind == PieMenuKind::standard || boolean()) menu.globalSidebarIconColorHex = text();
    return menu;
  }

  PieConfiguration configuration() {
    PieConfiguration configuration;
    configuration.menus = several(4, [this] { return menu(); });
    configuration.language = kAppLanguages.at(random_.below(kAppLanguageCount));
    configuration.hapticFeedbackEnabled = boolean();
    configuration.appSubMenus = several(3, [this] {
      return AppSubMenu{text(), several(3, [this] { return entry(); }), maybe([this] { return anyDouble(); })};
    });
    configuration.lastModified = anyDouble();
    return configuration;
  }

 private:
  void drawLooks(PieMenu& menu) {
    menu.menuRadius = anyDouble();
    menu.innerRadius = PieMenu::clampedInnerRadius(anyDouble(), menu.menuRadius);
    menu.iconDistance = anyDouble();
    menu.iconSize = anyDouble();
    menu.appearanceScale = between(0.5, 2);
    menu.rotationDegrees = anyDouble();
    menu.liquidGlass = {static_cast<LiquidGlassVariant>(random_.below(2)), anyDouble()};
    menu.animationDuration = anyDouble();
    menu.pawDecorationEnabled = boolean();
    menu.pawSizeScale = between(0.35, 0.95);
    menu.pawRadialInset = between(0.05, 0.95);
    menu.centerCatScale = between(0.45, 1.2);
    menu.centerAppIconScale = between(0.3, 0.7);
    menu.shortcutDigitSizeScale = between(0.1, 0.6);
    menu.shortcutDigitInsetLeftScale = between(0.05, 0.9);
    menu.shortcutDigitInsetRightScale = between(0.05, 0.9);
    menu.shortcutDigitOpacity = between(0.1, 1);
    menu.shortcutDigitColorHex = text();
  }

  RandomSource& random_;
};

}  // namespace

PieConfiguration randomConfiguration(RandomSource& random) { return Generator(random).configuration(); }

}  // namespace rondora
