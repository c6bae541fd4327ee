#include "settings/backup/document_changes.h"

#include <algorithm>
#include <optional>
#include <utility>

#include "base/unicode.h"
#include "model/ring_order.h"
#include "settings/backup/paired.h"

namespace rondora {
namespace {

using Kind = DocumentChange::Kind;

constexpr std::size_t kMaxNameLength = 60;  // characters

std::string oneLine(std::string_view text) { return shortened(controlsEscaped(text), kMaxNameLength); }

/// Identifiers are those of one document.
bool isSame(std::vector<AppSubMenuEntry> one, std::vector<AppSubMenuEntry> other) {
  for (auto* entries : {&one, &other}) {
    for (AppSubMenuEntry& entry : *entries) entry.id = {};
  }
  return one == other;
}

bool isSame(PieMenuItem one, PieMenuItem other) {
  for (PieMenuItem* item : {&one, &other}) {
    item->id = {};
    item->sectorIndex = 0;
  }
  return one == other;
}

/// In everything but what the lines about a menu name.
bool looksSame(const PieMenu& before, PieMenu after) {
  after.id = before.id;
  after.name = before.name;
  after.hotkey = before.hotkey;
  after.items = before.items;
  after.runningAppsExcludedBundleIds = before.runningAppsExcludedBundleIds;
  after.runningAppsMenuEnabled = before.runningAppsMenuEnabled;
  after.trackpadFingerCount = before.trackpadFingerCount;
  after.appCommandsDefaultEntries = before.appCommandsDefaultEntries;
  return before == after;
}

std::string kindKey(const PieMenu& menu) {
  return menu.kind == PieMenuKind::standard ? "name " + menu.name : std::string(rawValue(menu.kind));
}

std::string titleKey(const PieMenuItem& item) { return item.title; }

class Comparison {
 public:
  explicit Comparison(const ChangeWords& words) : words_(words) {}

  DocumentChanges documents(const PieConfiguration& before, const PieConfiguration& after) {
    const auto menus = paired<PieMenu>(
        before.menus, after.menus,
        {[](const PieMenu& menu) { return menu.id.string() + std::string(rawValue(menu.kind)); }, kindKey});
    for (const PieMenu* menu : menus.added) add(Kind::added, StringKey::changeMenuAdded, name(*menu), count(*menu));
    for (const PieMenu* menu : menus.removed) {
      add(Kind::removed, StringKey::changeMenuRemoved, name(*menu), count(*menu));
    }
    for (const auto& [one, other] : menus.both) {
      DocumentChanges parts = Comparison(words_).menus(*one, *other);
      if (parts.empty()) continue;
      changes_.push_back({Kind::changed, text(StringKey::changeMenu, name(*one)), std::move(parts)});
    }
    if (menus.isReordered) add(Kind::changed, StringKey::changeMenuOrder);
    commandSets(before, after);
    if (before.language != after.language) {
      add(Kind::changed, StringKey::changeLanguage, nativeName(before.language), nativeName(after.language));
    }
    if (before.hapticFeedbackEnabled != after.hapticFeedbackEnabled) {
      add(Kind::changed, after.hapticFeedbackEnabled ? StringKey::changeHapticOn : StringKey::changeHapticOff);
    }
    return limited();
  }

 private:
  DocumentChanges menus(const PieMenu& before, const PieMenu& after) {
    if (before.name != after.name) add(Kind::changed, StringKey::changeName, name(before), name(after));
    if (before.hotkey != after.hotkey) {
      add(Kind::changed, StringKey::changeHotkey, hotkey(before), hotkey(after));
    }
    if (fingers(before) != fingers(after)) {
      add(Kind::changed, StringKey::changeFingers, fingers(before), fingers(after));
    }
    if (before.runningAppsMenuEnabled != after.runningAppsMenuEnabled && after.kind != PieMenuKind::standard) {
      add(Kind::changed, after.runningAppsMenuEnabled ? StringKey::changeSwitchedOn : StringKey::changeSwitchedOff);
    }
    items(inRingOrder(before.items), inRingOrder(after.items));
    if (before.runningAppsExcludedBundleIds != after.runningAppsExcludedBundleIds) {
      add(Kind::changed, StringKey::changeExclusions);
    }
    if (!isSame(before.appCommandsDefaultEntries, after.appCommandsDefaultEntries)) {
      add(Kind::changed, StringKey::changeDefaultCommands);
    }
    if (!looksSame(before, after)) add(Kind::changed, StringKey::changeAppearance);
    return limited();
  }

  void items(const std::vector<PieMenuItem>& before, const std::vector<PieMenuItem>& after) {
    const auto items =
        paired<PieMenuItem>(before, after, {[](const PieMenuItem& item) { return item.id.string(); }, titleKey});
    for (const PieMenuItem* item : items.added) {
      add(Kind::added, StringKey::changeItemAdded, title(*item, item - after.data()));
    }
    for (const PieMenuItem* item : items.removed) {
      add(Kind::removed, StringKey::changeItemRemoved, title(*item, item - before.data()));
    }
    for (const auto& [one, other] : items.both) {
      const std::string former = title(*one, one - before.data());
      const std::string present = title(*other, other - after.data());
      if (one->title != other->title) {
        add(Kind::changed, StringKey::changeItemRenamed, former, present);
      } else if (!isSame(*one, *other)) {
        add(Kind::changed, StringKey::changeItem, former);
      }
    }
    if (items.isReordered) add(Kind::changed, StringKey::changeItemOrder);
  }

  void commandSets(const PieConfiguration& before, const PieConfiguration& after) {
    const auto sets = paired<AppSubMenu>(before.appSubMenus, after.appSubMenus,
                                         {[](const AppSubMenu& set) { return set.bundleIdentifier; }});
    for (const AppSubMenu* set : sets.added) add(Kind::added, StringKey::changeCommandsAdded, application(*set));
    for (const AppSubMenu* set : sets.removed) {
      add(Kind::removed, StringKey::changeCommandsRemoved, application(*set));
    }
    for (const auto& [one, other] : sets.both) {
      if (isSame(one->entries, other->entries) && one->rotationDegrees == other->rotationDegrees) continue;
      add(Kind::changed, StringKey::changeCommands, application(*one));
    }
  }

  template <class... Arguments>
  std::string text(StringKey key, const Arguments&... arguments) const {
    return std::string(words_.localization.text(key, arguments...));
  }
  template <class... Arguments>
  void add(Kind kind, StringKey key, const Arguments&... arguments) {
    changes_.push_back({kind, text(key, arguments...)});
  }

  DocumentChanges limited() {
    if (changes_.size() > kMaxChanges) {
      const std::size_t rest = changes_.size() - kMaxChanges;
      changes_.resize(kMaxChanges);
      add(Kind::changed, StringKey::changesNotShown, std::to_string(rest));
    }
    return std::move(changes_);
  }

  static std::string name(const PieMenu& menu) { return oneLine(menu.name); }
  static std::string count(const PieMenu& menu) { return std::to_string(menu.items.size()); }
  static std::string fingers(const PieMenu& menu) {
    const bool isCount =
        std::find(kFingerCounts.begin(), kFingerCounts.end(), menu.trackpadFingerCount) != kFingerCounts.end();
    return isCount ? std::to_string(menu.trackpadFingerCount) : "–";
  }
  std::string hotkey(const PieMenu& menu) const {
    return displayString(menu.hotkey, words_.localization.language(), words_.modifierNames);
  }
  /// An item without a title is named by its place in the ring.
  std::string title(const PieMenuItem& item, std::ptrdiff_t place) const {
    const std::string title = words_.itemTitle ? words_.itemTitle(item) : item.title;
    return title.empty() ? std::to_string(place + 1) : oneLine(title);
  }
  std::string application(const AppSubMenu& set) const {
    const auto name = words_.applicationName ? words_.applicationName(set.bundleIdentifier) : std::nullopt;
    return oneLine(name.value_or(set.bundleIdentifier));
  }

  const ChangeWords& words_;
  DocumentChanges changes_;
};

}  // namespace

DocumentChanges documentChanges(const PieConfiguration& before, const PieConfiguration& after,
                                const ChangeWords& words) {
  return Comparison(words).documents(before, after);
}

}  // namespace rondora
