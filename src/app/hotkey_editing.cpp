#include "app/hotkey_editing.h"

#include <algorithm>
#include <utility>

#include "app/menu_directory.h"
#include "storage/config_manager.h"

namespace rondora {

HotkeyEditing::HotkeyEditing(const Services& services) : services_(services), recorder_(services.recorder) {
  recorder_.onRecorded = [this](const HotkeyConfig& hotkey) { recorded(hotkey); };
  recorder_.onCancelled = [this] { cancel(); };
  recorder_.onModifiersChanged = [this] { publish(); };
  recorder_.onClick = [this] { clicked_.send(); };
  // On a later turn: the hotkeys are registered anew by then.
  documentObserver_ = services.notifications.addObserver(
      ConfigManager::kConfigurationDidChange,
      [&mainQueue = services_.recorder.mainQueue,
       publish = weakSelf_.bind([](HotkeyEditing& self) { self.publish(); })] { mainQueue.async(publish); });
}

HotkeyList HotkeyEditing::list() {
  return {.watch =
              [this](std::function<void(const HotkeyRows&)> observer) {
                publish();
                return rows_.subscribe(std::move(observer));
              },
          .toggleRecording =
              [this](const std::string& menuId) {
                if (const auto menu = Uuid::parse(menuId)) toggleRecording(*menu);
              },
          .cancelRecording = [this] { cancel(); },
          .remove =
              [this](const std::string& menuId) {
                cancel();
                if (const auto menu = Uuid::parse(menuId)) assign(*menu, {});
              },
          .onClick = [this](std::function<void()> observer) { return clicked_.subscribe(std::move(observer)); }};
}

void HotkeyEditing::toggleRecording(const Uuid& menu) {
  const bool wasThis = recording_ == menu;
  recorder_.stop();
  recording_.reset();
  note_.reset();
  if (!wasThis) {
    if (recorder_.start()) {
      recording_ = menu;
    } else {
      note_ = Note{menu, std::string(services_.localization.text(StringKey::hotkeyKeyboardBusy))};
    }
  }
  publish();
}

void HotkeyEditing::cancel() {
  recorder_.stop();
  note_.reset();
  recording_.reset();
  publish();
}

void HotkeyEditing::recorded(const HotkeyConfig& hotkey) {
  if (!recording_) return;
  const Uuid menu = *std::exchange(recording_, std::nullopt);
  if (std::string text = problem(hotkey, menu); !text.empty()) {
    note_ = Note{menu, std::move(text)};
  } else {
    assign(menu, hotkey);
  }
  publish();
}

/// Two menus may share a hotkey in the document, but it would never open the second one.
std::string HotkeyEditing::problem(const HotkeyConfig& hotkey, const Uuid& menu) const {
  const LocalizationStore& localization = services_.localization;
  if (hotkey.keyCode == KeyEvent::kNoKeyCode) return std::string(localization.text(StringKey::hotkeyKeyUnusable));
  if (needsModifier(hotkey)) return localization.text(StringKey::hotkeyNeedsModifier, words(hotkey));
  const auto& menus = services_.edits.document().menus;
  const auto other = std::ranges::find_if(menus, [&](const PieMenu& candidate) {
    return candidate.id != menu && candidate.hasLiveHotkey() && candidate.hotkey == hotkey;
  });
  if (other == menus.end()) return {};
  return localization.text(StringKey::hotkeyOpensMenu, words(hotkey), displayName(*other));
}

/// Saved at once, so that the hotkey works at once.
void HotkeyEditing::assign(const Uuid& menu, const HotkeyConfig& hotkey) {
  services_.edits.edit([&](PieConfiguration& document) {
    const auto found = std::ranges::find(document.menus, menu, &PieMenu::id);
    if (found != document.menus.end()) found->hotkey = hotkey;
  });
  services_.edits.save();
}

void HotkeyEditing::publish() {
  if (HotkeyRows present = rows(); present != rows_.value()) rows_.send(std::move(present));
}

HotkeyRows HotkeyEditing::rows() const {
  HotkeyRows rows;
  for (const PieMenu& menu : services_.edits.document().menus) rows.push_back(row(menu));
  return rows;
}

HotkeyRow HotkeyEditing::row(const PieMenu& menu) const {
  const bool isRecording = recording_ == menu.id;
  return {.menuId = menu.id.string(),
          .hotkey = isRecording ? recordingWords() : words(menu.hotkey),
          .note = isRecording ? "" : note(menu),
          .isAssigned = menu.hotkey.isAssigned(),
          .isRecording = isRecording,
          .recordName = services_.localization.text(StringKey::hotkeyRecordName, displayName(menu)),
          .removeName = services_.localization.text(StringKey::hotkeyRemoveName, displayName(menu))};
}

std::string HotkeyEditing::note(const PieMenu& menu) const {
  if (note_ && note_->menu == menu.id) return note_->text;
  const HotkeyManager* hotkeys = services_.hotkeys();
  const auto& menus = services_.edits.document().menus;
  if (hotkeys == nullptr || !menu.hasLiveHotkey() || opensWithHotkey(menu, menus, *hotkeys)) return {};
  if (const PieMenu& first = firstWithHotkeyOf(menu, menus); &first != &menu) {
    return services_.localization.text(StringKey::sessionHotkeyShared, displayName(menu), displayName(first));
  }
  const bool isTaken = !hotkeys->optionAgainst(menu.hotkey) && !HotkeyHIDTap::serves(menu.hotkey);
  return services_.localization.text(isTaken ? StringKey::settingsHotkeyRefused : StringKey::sessionHotkeyUnusable,
                                     displayName(menu));
}

std::string HotkeyEditing::words(const HotkeyConfig& hotkey) const {
  return displayString(hotkey, services_.localization.language(), services_.modifierNames);
}

std::string HotkeyEditing::recordingWords() const {
  const std::string modifiers = modifiersInWords(recorder_.heldModifiers(), services_.modifierNames);
  return modifiers.empty() ? std::string(services_.localization.text(StringKey::hotkeyPressKeys)) : modifiers + "…";
}

}  // namespace rondora
