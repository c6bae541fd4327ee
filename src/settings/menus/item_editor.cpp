#include "settings/menus/item_editor.h"

#include <algorithm>
#include <array>
#include <utility>

#include "base/unicode.h"
#include "icons/icon_reference.h"
#include "icons/web_address.h"
#include "model/carbon_modifiers.h"
#include "model/ring_order.h"
#include "pie/labels/quick_select.h"
#include "settings/editing/menu_edits.h"

namespace rondora {
namespace {

constexpr std::string_view kSiteOfAddress = "favicon:";

ItemEditor::Kind kindOf(const MenuAction& action) {
  constexpr std::array kKindsOfActions = {ItemEditor::Kind::none,    ItemEditor::Kind::application,
                                          ItemEditor::Kind::address, ItemEditor::Kind::keystroke,
                                          ItemEditor::Kind::system,  ItemEditor::Kind::snippet};
  static_assert(kKindsOfActions.size() == std::variant_size_v<MenuAction>);
  return kKindsOfActions[action.index()];
}

MenuAction emptyAction(ItemEditor::Kind kind) {
  switch (kind) {
    case ItemEditor::Kind::none:
      return Unassigned{};
    case ItemEditor::Kind::application:
      return LaunchApp{};
    case ItemEditor::Kind::address:
      return OpenURL{};
    case ItemEditor::Kind::keystroke:
      return Keystroke{};
    case ItemEditor::Kind::snippet:
      return Snippet{};
    case ItemEditor::Kind::system:
      return SystemShortcut{};
  }
  return Unassigned{};
}

/// The user means a web page when the text lacks a scheme.
bool isOpenable(std::string_view address) {
  const std::string_view text = trimmed(address);
  const auto colon = text.find(':');
  if (text.find_first_of(" \t\n") != text.npos || colon == text.npos || colon == 0) return false;
  if (text.starts_with("http:") || text.starts_with("https:")) return WebAddress::parse(text).has_value();
  return colon + 1 < text.size() && std::ranges::all_of(text.substr(0, colon), [](char c) {
           return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z') || (c >= '0' && c <= '9') || c == '+' || c == '-' ||
                  c == '.';
         });
}

template <class Action>
const Action* actionOf(const PieMenuItem* item) {
  return item == nullptr ? nullptr : std::get_if<Action>(&item->action);
}

}  // namespace

ItemEditor::ItemEditor(const Services& services) : services_(services), recorder_(services.recorder) {
  recorder_.onRecorded = [this](const HotkeyConfig& keys) { recorded(keys); };
  recorder_.onCancelled = [this] { cancelRecording(); };
  recorder_.onModifiersChanged = [this] { changed_.send(); };
  recorder_.onClick = [this] { cancelRecording(); };
}

void ItemEditor::edit(const std::function<void(PieMenuItem&)>& edit, std::string_view field) {
  if (item() == nullptr) return;
  const Uuid menuId = services_.navigation.menu()->id;
  PieMenuItem edited = *item();
  edit(edited);
  const std::string burst = field.empty() ? "" : edited.id.string() + std::string(field);
  services_.history.edit(
      [&](PieConfiguration& document) {
        const auto menu = std::ranges::find(document.menus, menuId, &PieMenu::id);
        if (menu != document.menus.end()) ItemEdits::replace(*menu, edited);
      },
      burst);
}

void ItemEditor::setTitle(const std::string& title) {
  edit([&](PieMenuItem& item) { item.title = title; }, "title");
}

ItemEditor::Kind ItemEditor::kind() const { return item() == nullptr ? Kind::none : kindOf(item()->action); }

std::string ItemEditor::kindName(Kind kind) const {
  switch (kind) {
    case Kind::none:
      return text(StringKey::actionNone);
    case Kind::application:
      return text(StringKey::actionApplication);
    case Kind::address:
      return text(StringKey::actionAddress);
    case Kind::keystroke:
      return text(StringKey::actionKeystroke);
    case Kind::snippet:
      return text(StringKey::actionSnippet);
    case Kind::system:
      return text(StringKey::actionSystem);
  }
  return {};
}

void ItemEditor::setKind(Kind wanted) {
  if (item() == nullptr || kind() == wanted) return;
  cancelRecording();
  MenuAction action = formerAction(wanted);
  std::erase_if(former_,
                [this](const Former& each) { return each.item == item()->id && kindOf(each.action) == kind(); });
  former_.push_back({item()->id, item()->action});
  setAction(std::move(action));
}

MenuAction ItemEditor::formerAction(Kind wanted) const {
  const auto before = std::ranges::find_if(
      former_, [this, wanted](const Former& each) { return each.item == item()->id && kindOf(each.action) == wanted; });
  return before == former_.end() ? emptyAction(wanted) : before->action;
}

void ItemEditor::setAction(MenuAction action, std::string_view field) {
  attempted_.reset();
  edit([&](PieMenuItem& item) { item.action = std::move(action); }, field);
}

std::string ItemEditor::problem() const {
  switch (kind()) {
    case Kind::none:
      return {};
    case Kind::application:
      if (applicationIdentifier().empty()) return {};
      return services_.applicationName(applicationIdentifier()) ? "" : text(StringKey::applicationNotInstalled);
    case Kind::address:
      if (trimmed(address()).empty()) return text(StringKey::addressEmpty);
      return isOpenable(address()) ? "" : text(StringKey::addressInvalid);
    case Kind::keystroke:
      return recordingProblem_;
    case Kind::snippet:
      return snippet().empty() ? text(StringKey::snippetEmpty) : "";
    case Kind::system: {
      const auto* action = actionOf<SystemShortcut>(item());
      return services_.canDo(action->kind) ? "" : text(StringKey::itemSystemNothing);
    }
  }
  return {};
}

std::string ItemEditor::applicationIdentifier() const {
  const auto* launch = actionOf<LaunchApp>(item());
  return launch == nullptr ? "" : launch->bundleIdentifier;
}

std::string ItemEditor::applicationName() const {
  const std::string id = applicationIdentifier();
  return id.empty() ? "" : services_.applicationName(id).value_or(id);
}

/// A symbol that a new item got by chance, or the picture of what the item opened before.
bool ItemEditor::hasAutomaticIcon() const {
  const std::string& icon = item()->icon;
  const auto& symbols = PieMenuItem::kUnassignedSymbols;
  const bool isBySite = icon == kSiteOfAddress;
  const bool isByApplication = icon == IconReference::application(applicationIdentifier());
  return icon.empty() || isBySite || isByApplication || std::ranges::find(symbols, icon) != symbols.end();
}

void ItemEditor::setApplication(const std::string& bundleIdentifier) {
  if (item() == nullptr) return;
  const bool namesFormer = item()->title.empty() || item()->title == applicationName();
  const bool hasOwnIcon = !hasAutomaticIcon();
  attempted_.reset();
  edit([&](PieMenuItem& item) {
    item.action = LaunchApp{bundleIdentifier};
    if (namesFormer) item.title = services_.applicationName(bundleIdentifier).value_or(bundleIdentifier);
    if (!hasOwnIcon) item.icon = IconReference::application(bundleIdentifier);
  });
}

std::string ItemEditor::address() const {
  const auto* open = actionOf<OpenURL>(item());
  return open == nullptr ? "" : open->url;
}

void ItemEditor::setAddress(const std::string& address) {
  if (item() == nullptr) return;
  const bool getsPicture = hasAutomaticIcon() && WebAddress::parse(address).has_value();
  attempted_.reset();
  edit(
      [&](PieMenuItem& item) {
        item.action = OpenURL{address};
        if (getsPicture) item.icon = kSiteOfAddress;
      },
      "address");
}

std::string ItemEditor::keystrokeText() const {
  if (isRecording()) {
    const std::string modifiers = modifiersInWords(recorder_.heldModifiers(), services_.modifierNames);
    return modifiers.empty() ? text(StringKey::hotkeyPressKeys) : modifiers + "…";
  }
  const auto* keys = actionOf<Keystroke>(item());
  if (keys == nullptr || (keys->keyCode == 0 && keys->modifiers == 0)) return text(StringKey::keystrokeNone);
  return keystrokeDisplayString(keys->keyCode, keys->modifiers, services_.localization.language(),
                                services_.modifierNames);
}

void ItemEditor::toggleRecording() {
  if (isRecording() || item() == nullptr) return cancelRecording();
  recordingProblem_.clear();
  if (recorder_.start()) {
    recorded_ = item()->id;
  } else {
    recordingProblem_ = text(StringKey::hotkeyKeyboardBusy);
  }
  changed_.send();
}

void ItemEditor::cancelRecording() {
  recorder_.stop();
  if (recorded_.has_value() || !recordingProblem_.empty()) {
    recorded_.reset();
    recordingProblem_.clear();
    changed_.send();
  }
}

void ItemEditor::recorded(const HotkeyConfig& keys) {
  const auto recorded = std::exchange(recorded_, std::nullopt);
  if (item() == nullptr || recorded != item()->id) return;
  if (keys.keyCode == KeyEvent::kNoKeyCode) {
    recordingProblem_ = text(StringKey::hotkeyKeyUnusable);
  } else {
    setAction(Keystroke{keys.keyCode, static_cast<std::int64_t>(CarbonModifiers::eventFlags(keys.carbonModifiers))});
  }
  changed_.send();
}

std::string ItemEditor::snippet() const {
  const auto* snippet = actionOf<Snippet>(item());
  return snippet == nullptr ? "" : snippet->text;
}

void ItemEditor::setSnippet(const std::string& text) { setAction(Snippet{text}, "snippet"); }

std::vector<ItemEditor::SystemChoice> ItemEditor::systemChoices() const {
  std::vector<SystemChoice> choices;
  const auto name = [this](MacOSSystemActionKind kind) {
    switch (kind) {
      case MacOSSystemActionKind::missionControl:
        return text(StringKey::systemOverview);
      case MacOSSystemActionKind::startScreenSaver:
        return text(StringKey::systemScreenSaver);
      default:
        return text(StringKey::systemForeign);
    }
  };
  const auto* action = actionOf<SystemShortcut>(item());
  for (const MacOSSystemActionKind kind : kAppStoreSystemActions) {
    const bool isAvailable = services_.canDo(kind);
    if (isAvailable || (action != nullptr && action->kind == kind)) choices.push_back({kind, name(kind), isAvailable});
  }
  const auto isItems = [&](const SystemChoice& choice) { return action != nullptr && choice.kind == action->kind; };
  if (action != nullptr && std::ranges::none_of(choices, isItems)) {
    choices.push_back({action->kind, name(action->kind), false});
  }
  return choices;
}

void ItemEditor::setSystem(MacOSSystemActionKind kind) { setAction(SystemShortcut{kind}); }

void ItemEditor::setIcon(const std::string& icon) {
  edit([&](PieMenuItem& item) { item.icon = icon; });
}

void ItemEditor::setColor(const std::string& color) {
  edit([&](PieMenuItem& item) { item.color = color; }, "color");
}

void ItemEditor::setIconColor(std::optional<std::string> color) {
  edit([&](PieMenuItem& item) { item.iconColor = std::move(color); }, "iconColor");
}

std::string ItemEditor::automaticLabel() const {
  if (item() == nullptr) return {};
  auto items = inRingOrder(services_.navigation.menu()->items);
  const auto own = std::ranges::find(items, item()->id, &PieMenuItem::id);
  own->customShortcut.reset();
  const auto label = resolvedShortcutLabels(items)[static_cast<std::size_t>(own - items.begin())];
  return label ? services_.localization.text(StringKey::labelAutomatic, *label) : text(StringKey::labelNone);
}

std::string ItemEditor::label() const { return item() == nullptr ? "" : item()->customShortcut.value_or(""); }

bool ItemEditor::setLabel(const std::string& text) {
  if (item() == nullptr) return false;
  const auto label = PieMenuItem::normalizedCustomShortcut(text);
  const bool isLabel = label.has_value() || trimmed(text).empty();
  invalidLabel_ = isLabel ? std::nullopt : std::optional(item()->id);
  if (isLabel) edit([&](PieMenuItem& item) { item.customShortcut = label; });
  changed_.send();
  return isLabel;
}

std::string ItemEditor::labelProblem() const {
  if (item() == nullptr) return {};
  if (invalidLabel_ == item()->id) return text(StringKey::labelInvalid);
  if (label().empty()) return {};
  const PieMenuItem* other = ItemEdits::withLabel(*services_.navigation.menu(), label(), item()->id);
  if (other == nullptr) return {};
  return services_.localization.text(StringKey::labelClash,
                                     other->title.empty() ? text(StringKey::itemUntitled) : other->title);
}

void ItemEditor::tryIt() {
  if (item() == nullptr) return;
  attempted_ = item()->id;
  attempt_ = kind() == Kind::none ? text(StringKey::itemTryNothing) : "";
  changed_.send();
  if (kind() == Kind::none) return;
  services_.run(*item(), weakSelf_.bind([id = item()->id](ItemEditor& editor, const std::string& problem) {
    if (editor.attempted_ != id) return;
    editor.attempt_ = problem.empty() ? editor.text(StringKey::itemTryWorked) : problem;
    editor.changed_.send();
  }));
}

std::string ItemEditor::attempt() const { return item() != nullptr && attempted_ == item()->id ? attempt_ : ""; }

}  // namespace rondora
