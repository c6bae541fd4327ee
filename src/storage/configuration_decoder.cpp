#include "storage/configuration_decoder.h"

#include <algorithm>
#include <array>

#include "model/appearance_fields.h"
#include "storage/pie_configuration_migrator.h"

namespace rondora {
namespace {

constexpr std::array<std::string_view, 4> kRetiredSystemActions = {"showDesktop", "notificationCenter", "launchpad",
                                                                   "stopScreenSaver"};

MenuAction systemAction(const std::string& raw) {
  const bool isRetired =
      std::find(kRetiredSystemActions.begin(), kRetiredSystemActions.end(), raw) != kRetiredSystemActions.end();
  const auto kind = isRetired ? std::nullopt : systemActionFromRawValue(raw);
  return kind ? MenuAction(SystemShortcut{*kind}) : MenuAction(Unassigned{});
}

MenuAction keystroke(const JsonReader& json) {
  const std::int64_t keyCode = json.at("keyCode").integer();
  return Keystroke{keyCode, json.at("modifiers").integer()};
}

/// The first case of this list that is present; the order in the text is irrelevant.
MenuAction menuAction(const JsonReader& json) {
  if (json.has("unassigned")) return Unassigned{};
  if (json.has("launchApp")) return LaunchApp{json.at("launchApp").at("bundleIdentifier").string()};
  if (json.has("openURL")) return OpenURL{json.at("openURL").at("url").string()};
  if (json.has("keystroke")) return keystroke(json.at("keystroke"));
  if (json.has("systemShortcut")) return systemAction(json.at("systemShortcut").at("_0").string());
  if (json.has("snippet")) return Snippet{json.at("snippet").value("text", &JsonReader::string, std::string())};
  return Unassigned{};
}

HotkeyConfig hotkeyConfig(const JsonReader& json) {
  const std::int64_t keyCode = json.at("keyCode").integer();
  return {keyCode, json.at("carbonModifiers").integer()};
}

PieMenuKind menuKind(const JsonReader& json) { return json.enumerator(pieMenuKindFromRawValue); }

LiquidGlassSettings liquidGlass(const JsonReader& json) {
  const auto variant = [](const JsonReader& text) { return text.enumerator(liquidGlassVariantFromRawValue); };
  LiquidGlassSettings settings;
  settings.variant = json.value("variant", variant, settings.variant);
  settings.tintOpacity = json.value("tintOpacity", &JsonReader::number, settings.tintOpacity);
  return settings;
}

std::vector<std::string> strings(const JsonReader& json) { return json.elements(&JsonReader::string); }

/// Reads one field of `menu`, which holds the default before.
struct AppearanceReader {
  const JsonReader& json;
  const AppearanceField& field;
  PieMenu& menu;

  void operator()(double PieMenu::*member) const {
    const auto number = &JsonReader::number;
    const double value = field.isRequired ? json.at(field.name).number() : json.value(field.name, number, menu.*member);
    menu.*member = field.document.clamped(value);
  }
  void operator()(bool PieMenu::*member) const { read(member, &JsonReader::boolean); }
  void operator()(std::string PieMenu::*member) const { read(member, &JsonReader::string); }
  void operator()(LiquidGlassSettings PieMenu::*member) const { read(member, liquidGlass); }

  template <class T, class Decode>
  void read(T PieMenu::*member, Decode decode) const {
    menu.*member = json.value(field.name, decode, menu.*member);
  }
};

/// Some fields decide the range or the default of those after them.
void settleAfter(const AppearanceField& field, const JsonReader& json, PieMenu& menu) {
  if (field.member == appearanceField<&PieMenu::innerRadius>().member) {
    menu.innerRadius = PieMenu::clampedInnerRadius(menu.innerRadius, menu.menuRadius);
    menu.iconDistance = PieMenu::defaultIconDistance(menu.innerRadius, menu.menuRadius);
  } else if (field.member == appearanceField<&PieMenu::shortcutDigitSizeScale>().member) {
    const auto formerInset = json.optional("shortcutDigitCornerInsetScale", &JsonReader::number);
    menu.shortcutDigitInsetLeftScale = formerInset.value_or(menu.shortcutDigitInsetLeftScale);
    menu.shortcutDigitInsetRightScale = formerInset.value_or(menu.shortcutDigitInsetRightScale);
  }
}

void numberSectorsWhenAllAreFirst(std::vector<PieMenuItem>& items) {
  const bool allFirst = std::all_of(items.begin(), items.end(), [](const auto& item) { return item.sectorIndex == 0; });
  if (!allFirst) return;
  for (std::size_t i = 0; i < items.size(); ++i) items[i].sectorIndex = static_cast<std::int64_t>(i);
}

void recolorWhenAllAreAlike(const JsonReader& json, std::vector<PieMenuItem>& items) {
  const bool alike =
      std::all_of(items.begin(), items.end(), [&](const auto& item) { return item.color == items[0].color; });
  if (!alike) return;
  for (std::size_t i = 0; i < items.size(); ++i) {
    if (items[i].sectorIndex < 0) json.element(i).at("sectorIndex").fail("negative");
    items[i].color = kItemColorPalette[static_cast<std::size_t>(items[i].sectorIndex) % kItemColorPalette.size()];
  }
}

void repair(const JsonReader& json, std::vector<PieMenuItem>& items) {
  if (items.size() < 2) return;
  numberSectorsWhenAllAreFirst(items);
  recolorWhenAllAreAlike(json, items);
}

/// Menus of an earlier model, which per-application command sets replaced.
bool isBoundToOneApplication(const JsonReader& json) {
  const auto kind = json.optional("kind", menuKind);
  const auto application = json.optional("boundAppBundleId", &JsonReader::string);
  return application && (!kind || kind == PieMenuKind::standard);
}

struct LegacyTrackpadGesture {
  std::optional<std::int64_t> fingerCount;
  std::optional<Uuid> menuId;

  void moveIntoMenu(std::vector<PieMenu>& menus) const;
  PieMenu* target(std::vector<PieMenu>& menus) const;
};

template <class Condition>
PieMenu* firstMenu(std::vector<PieMenu>& menus, Condition condition) {
  const auto found = std::find_if(menus.begin(), menus.end(), condition);
  return found == menus.end() ? nullptr : &*found;
}

PieMenu* LegacyTrackpadGesture::target(std::vector<PieMenu>& menus) const {
  PieMenu* named = firstMenu(
      menus, [this](const PieMenu& menu) { return menu.id == menuId && menu.kind != PieMenuKind::appCommands; });
  if (named != nullptr) return named;
  return firstMenu(menus, [](const PieMenu& menu) { return menu.kind == PieMenuKind::standard; });
}

void LegacyTrackpadGesture::moveIntoMenu(std::vector<PieMenu>& menus) const {
  if (!fingerCount || !isFingerCount(*fingerCount)) return;
  const bool taken = std::any_of(menus.begin(), menus.end(),
                                 [this](const PieMenu& menu) { return menu.trackpadFingerCount == *fingerCount; });
  if (taken) return;
  PieMenu* menu = target(menus);
  if (menu != nullptr && menu->trackpadFingerCount == 0) menu->trackpadFingerCount = *fingerCount;
}

/// An unreadable gesture counts as absent.
LegacyTrackpadGesture legacyTrackpadGesture(const JsonReader& json) {
  const auto decode = [](const JsonReader& gesture) {
    return LegacyTrackpadGesture{gesture.optional("fingerCount", &JsonReader::integer),
                                 gesture.optional("menuId", &JsonReader::uuid)};
  };
  try {
    return json.value("trackpadGesture", decode, LegacyTrackpadGesture());
  } catch (const DecodingError&) {
    return {};
  }
}

}  // namespace

PieConfiguration ConfigurationDecoder::configuration(const JsonReader& json) const {
  PieConfiguration configuration;
  configuration.schemaVersion = json.value("schemaVersion", &JsonReader::integer, std::int64_t{0});
  const auto menus = [this](const JsonReader& array) {
    return array.elements([this](const JsonReader& element) { return menu(element); });
  };
  if (auto decoded = json.optional("menus", menus)) {
    configuration.menus = std::move(*decoded);
    readPresentForm(json, configuration);
  } else {
    readLegacySingleMenuForm(json, configuration);
  }
  PieConfigurationMigrator(random_).bringUpToDate(configuration);
  return configuration;
}

void ConfigurationDecoder::readPresentForm(const JsonReader& json, PieConfiguration& configuration) const {
  const auto bound = json.at("menus").elements(isBoundToOneApplication);
  std::size_t position = 0;
  std::erase_if(configuration.menus, [&](const PieMenu&) { return bound[position++]; });
  const auto language = [](const JsonReader& text) { return text.enumerator(appLanguageFromRawValue); };
  configuration.language = json.value("language", language, configuration.language);
  configuration.hapticFeedbackEnabled = json.value("hapticFeedbackEnabled", &JsonReader::boolean, true);
  const auto sets = [this](const JsonReader& array) {
    return array.elements([this](const JsonReader& element) { return appSubMenu(element); });
  };
  configuration.appSubMenus = json.value("appSubMenus", sets, std::vector<AppSubMenu>());
  configuration.lastModified = json.value("lastModified", &JsonReader::number, kDistantPast);
  legacyTrackpadGesture(json).moveIntoMenu(configuration.menus);
}

void ConfigurationDecoder::readLegacySingleMenuForm(const JsonReader& json, PieConfiguration& configuration) const {
  PieMenu menu;
  menu.id = random_.uuid();
  menu.name = "Main";
  menu.items = items(json.at("items"));
  menu.hotkey = hotkeyConfig(json.at("hotkey"));
  menu.menuRadius = json.at("menuRadius").number();
  menu.animationDuration = json.at("animationDuration").number();
  menu.innerRadius = PieMenu::clampedInnerRadius(menu.innerRadius, menu.menuRadius);
  configuration.menus.push_back(std::move(menu));
}

PieMenu ConfigurationDecoder::menu(const JsonReader& json) const {
  PieMenu menu;
  menu.id = json.at("id").uuid();
  menu.name = json.at("name").string();
  menu.hotkey = hotkeyConfig(json.at("hotkey"));
  menu.items = items(json.at("items"));
  readLooks(json, menu);
  menu.kind = json.value("kind", menuKind, PieMenuKind::standard);
  menu.runningAppsExcludedBundleIds = PieMenu::deduplicatedRunningAppsExcludedBundleIds(
      json.value("runningAppsExcludedBundleIds", strings, std::vector<std::string>()));
  menu.runningAppsMenuEnabled = json.value("runningAppsMenuEnabled", &JsonReader::boolean, true);
  menu.trackpadFingerCount = json.value("trackpadFingerCount", &JsonReader::integer, std::int64_t{0});
  menu.appCommandsDefaultEntries =
      PieMenu::resolvedAppCommandsDefaultEntries(entries(json, "appCommandsDefaultEntries"), menu.kind, random_);
  repair(json.at("items"), menu.items);
  return menu;
}

void ConfigurationDecoder::readLooks(const JsonReader& json, PieMenu& menu) const {
  for (const AppearanceField& field : kAppearanceFields) {
    std::visit(AppearanceReader{json, field, menu}, field.member);
    settleAfter(field, json, menu);
  }
  menu.globalSidebarIconColorHex = json.optional("globalSidebarIconColorHex", &JsonReader::string);
}

std::vector<PieMenuItem> ConfigurationDecoder::items(const JsonReader& json) const {
  return json.elements([this](const JsonReader& element) { return item(element); });
}

PieMenuItem ConfigurationDecoder::item(const JsonReader& json) const {
  const auto string = &JsonReader::string;
  PieMenuItem item;
  const auto id = json.optional("id", &JsonReader::uuid);
  item.id = id ? *id : random_.uuid();
  item.title = json.value("title", string, std::string());
  item.icon = json.value("icon", string, std::string());
  item.action = json.value("action", menuAction, MenuAction());
  item.color = json.value("color", string, item.color);
  item.iconColor = json.optional("iconColor", string);
  item.sectorIndex = json.value("sectorIndex", &JsonReader::integer, std::int64_t{0});
  item.customShortcut = PieMenuItem::normalizedCustomShortcut(json.optional("customShortcut", string));
  return item;
}

std::vector<AppSubMenuEntry> ConfigurationDecoder::entries(const JsonReader& json, std::string_view key) const {
  const auto good = [this](const JsonReader& array) {
    return array.goodElements([this](const JsonReader& element) { return appSubMenuEntry(element); });
  };
  return json.value(key, good, std::vector<AppSubMenuEntry>());
}

AppSubMenu ConfigurationDecoder::appSubMenu(const JsonReader& json) const {
  AppSubMenu set;
  set.bundleIdentifier = json.at("bundleIdentifier").string();
  set.entries = entries(json, "entries");
  set.rotationDegrees = json.optional("rotationDegrees", &JsonReader::number);
  return set;
}

AppSubMenuEntry ConfigurationDecoder::appSubMenuEntry(const JsonReader& json) const {
  AppSubMenuEntry entry;
  const auto id = json.optional("id", &JsonReader::uuid);
  entry.id = id ? *id : random_.uuid();
  entry.kind = json.at("kind").enumerator(appSubMenuEntryKindFromRawValue);
  entry.menuPath = json.value("menuPath", strings, std::vector<std::string>());
  entry.shortcutCharacter = json.optional("shortcutCharacter", &JsonReader::string);
  entry.shortcutModifiers = json.optional("shortcutModifiers", &JsonReader::integer);
  entry.icon = json.optional("icon", &JsonReader::string);
  if (entry.kind == AppSubMenuEntry::Kind::menuItem && entry.menuPath.size() < 2) {
    json.fail("menuItem needs a path of at least two titles");
  }
  return entry;
}

}  // namespace rondora
