#include <cmath>
#include <nlohmann/json.hpp>

#include "model/appearance_fields.h"
#include "platform/file_system.h"
#include "storage/configuration_json.h"
#include "storage/json_value.h"

namespace rondora {
namespace {

using nlohmann::ordered_json;

constexpr int kIndentation = 2;
/// A double represents every integer up to 2^53.
constexpr double kMaxExactInteger = 9007199254740992.0;

struct NotFinite {
  std::string key;
};

/// An object that is written in the order of its fields. Throws NotFinite for a number that JSON cannot hold.
class ObjectWriter {
 public:
  /// Reserves room for all fields: a growing object would copy its members deeply.
  explicit ObjectWriter(std::size_t maxFields = 1) { object_.get_ref<ordered_json::object_t&>().reserve(maxFields); }

  ObjectWriter& field(std::string key, double number) {
    if (!std::isfinite(number)) throw NotFinite{std::move(key)};
    const bool isInteger = std::trunc(number) == number && std::abs(number) < kMaxExactInteger;
    if (isInteger) return put(std::move(key), static_cast<std::int64_t>(number));
    return put(std::move(key), number);
  }
  ObjectWriter& field(std::string key, std::int64_t number) { return put(std::move(key), number); }
  ObjectWriter& field(std::string key, bool value) { return put(std::move(key), value); }
  ObjectWriter& field(std::string key, const std::string& text) { return put(std::move(key), text); }
  ObjectWriter& field(std::string key, std::string_view text) { return put(std::move(key), std::string(text)); }
  ObjectWriter& field(std::string key, ordered_json value) { return put(std::move(key), std::move(value)); }
  template <class T>
  ObjectWriter& field(std::string key, const std::optional<T>& value) {
    return value ? field(std::move(key), *value) : *this;
  }
  ordered_json take() { return std::move(object_); }

 private:
  template <class T>
  ObjectWriter& put(std::string key, T value) {
    object_.emplace(std::move(key), std::move(value));
    return *this;
  }

  ordered_json object_ = ordered_json::object();
};

template <class Container, class Encode>
ordered_json array(const Container& elements, Encode encode) {
  ordered_json result = ordered_json::array();
  for (const auto& element : elements) result.push_back(encode(element));
  return result;
}

struct ActionEncoder {
  ordered_json operator()(const Unassigned&) const { return wrapped("unassigned", ObjectWriter()); }
  ordered_json operator()(const LaunchApp& action) const {
    return wrapped("launchApp", ObjectWriter().field("bundleIdentifier", action.bundleIdentifier));
  }
  ordered_json operator()(const OpenURL& action) const {
    return wrapped("openURL", ObjectWriter().field("url", action.url));
  }
  ordered_json operator()(const Keystroke& action) const {
    return wrapped("keystroke", ObjectWriter(2).field("keyCode", action.keyCode).field("modifiers", action.modifiers));
  }
  ordered_json operator()(const SystemShortcut& action) const {
    return wrapped("systemShortcut", ObjectWriter().field("_0", rawValue(action.kind)));
  }
  ordered_json operator()(const Snippet& action) const {
    return wrapped("snippet", ObjectWriter().field("text", action.text));
  }

  static ordered_json wrapped(std::string name, ObjectWriter payload) {
    return ObjectWriter().field(std::move(name), payload.take()).take();
  }
};

ordered_json encodeItem(const PieMenuItem& item) {
  return ObjectWriter(8)
      .field("id", item.id.string())
      .field("title", item.title)
      .field("icon", item.icon)
      .field("action", std::visit(ActionEncoder(), item.action))
      .field("color", item.color)
      .field("iconColor", item.iconColor)
      .field("sectorIndex", item.sectorIndex)
      .field("customShortcut", item.customShortcut)
      .take();
}

ordered_json encodeEntry(const AppSubMenuEntry& entry) {
  return ObjectWriter(6)
      .field("id", entry.id.string())
      .field("kind", rawValue(entry.kind))
      .field("menuPath", ordered_json(entry.menuPath))
      .field("shortcutCharacter", entry.shortcutCharacter)
      .field("shortcutModifiers", entry.shortcutModifiers)
      .field("icon", entry.icon)
      .take();
}

ordered_json encodeAppSubMenu(const AppSubMenu& set) {
  return ObjectWriter(3)
      .field("bundleIdentifier", set.bundleIdentifier)
      .field("entries", array(set.entries, encodeEntry))
      .field("rotationDegrees", set.rotationDegrees)
      .take();
}

ordered_json encodeHotkey(const HotkeyConfig& hotkey) {
  return ObjectWriter(2).field("keyCode", hotkey.keyCode).field("carbonModifiers", hotkey.carbonModifiers).take();
}

template <class T>
const T& toJson(const T& value) {
  return value;
}

ordered_json toJson(const LiquidGlassSettings& glass) {
  return ObjectWriter(2).field("variant", rawValue(glass.variant)).field("tintOpacity", glass.tintOpacity).take();
}

std::optional<ordered_json> encodeDefaultEntries(const PieMenu& menu) {
  if (menu.appCommandsDefaultEntries.empty()) return std::nullopt;
  return array(menu.appCommandsDefaultEntries, encodeEntry);
}

/// The document stores the default entries between the appearance fields.
constexpr auto kFieldAfterDefaultEntries = &PieMenu::shortcutDigitSizeScale;

void writeAppearance(ObjectWriter& writer, const PieMenu& menu) {
  for (const AppearanceField& field : kAppearanceFields) {
    if (field.member == appearanceField<kFieldAfterDefaultEntries>().member) {
      writer.field("appCommandsDefaultEntries", encodeDefaultEntries(menu));
    }
    std::visit([&](auto member) { writer.field(std::string(field.name), toJson(menu.*member)); }, field.member);
  }
}

ordered_json encodeMenu(const PieMenu& menu) {
  ObjectWriter writer(28);
  writer.field("id", menu.id.string())
      .field("name", menu.name)
      .field("hotkey", encodeHotkey(menu.hotkey))
      .field("items", array(menu.items, encodeItem))
      .field("kind", rawValue(menu.kind))
      .field("runningAppsExcludedBundleIds", ordered_json(menu.runningAppsExcludedBundleIds))
      .field("runningAppsMenuEnabled", menu.runningAppsMenuEnabled)
      .field("trackpadFingerCount", menu.trackpadFingerCount);
  writeAppearance(writer, menu);
  return writer.field("globalSidebarIconColorHex", menu.globalSidebarIconColorHex).take();
}

ordered_json encodeDocument(const PieConfiguration& configuration) {
  return ObjectWriter(6)
      .field("schemaVersion", kCurrentSchemaVersion)
      .field("menus", array(configuration.menus, encodeMenu))
      .field("language", rawValue(configuration.language))
      .field("hapticFeedbackEnabled", configuration.hapticFeedbackEnabled)
      .field("appSubMenus", array(configuration.appSubMenus, encodeAppSubMenu))
      .field("lastModified", configuration.lastModified)
      .take();
}

/// The number of values as the parser counts them.
std::size_t valueCount(const ordered_json& json) {
  std::size_t count = 1;
  for (const auto& element : json) {
    count += element.is_structured() ? valueCount(element) : 1;
  }
  return count;
}

enum class Layout { oneLine, prettyPrinted };

template <class Encode, class T>
CodingResult<std::string> encoded(Encode encode, const T& value, Layout layout) {
  try {
    const ordered_json json = encode(value);
    if (valueCount(json) > kMaxJsonValues) return CodingError{"document: too many values"};
    std::string text = json.dump(layout == Layout::prettyPrinted ? kIndentation : -1, ' ', false,
                                 ordered_json::error_handler_t::replace);
    if (text.size() > FileSystem::kMaxFileSize) return CodingError{"document: too long"};
    return text;
  } catch (const NotFinite& error) {
    return CodingError{error.key + ": not a finite number"};
  }
}

}  // namespace

CodingResult<std::string> encodeConfiguration(const PieConfiguration& configuration) {
  return encoded(encodeDocument, configuration, Layout::prettyPrinted);
}

CodingResult<std::string> encodeMenuItem(const PieMenuItem& item) { return encoded(encodeItem, item, Layout::oneLine); }

}  // namespace rondora
