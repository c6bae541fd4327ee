#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/observable.h"
#include "model/app_language.h"
#include "settings/findings_watch.h"
#include "settings/onboarding/welcome.h"
#include "settings/settings_models.h"

namespace rondora {

/// A menu and the hotkey that opens it, as the settings show them.
struct HotkeyRow {
  std::string menuId;
  /// While it is recorded: what the user is to do, or the modifiers held so far.
  std::string hotkey;
  /// What is wrong with the hotkey, or with the one just recorded; empty for nothing.
  std::string note;
  bool isAssigned = false;
  bool isRecording = false;
  /// Screen-reader names of the buttons.
  std::string recordName;
  std::string removeName;
  friend bool operator==(const HotkeyRow&, const HotkeyRow&) = default;
};
using HotkeyRows = std::vector<HotkeyRow>;

/// The list of hotkeys in the settings.
struct HotkeyList {
  /// Calls the observer with the rows, at once and after each change.
  std::function<Subscription(std::function<void(const HotkeyRows&)>)> watch;
  /// Starts to record, or ends the recording of that menu.
  std::function<void(const std::string& menuId)> toggleRecording;
  std::function<void()> cancelRecording;
  std::function<void(const std::string& menuId)> remove;
  /// The observer is called when the user clicks, in any window, while a hotkey is recorded.
  std::function<Subscription(std::function<void()>)> onClick;
};

/// Contents of the windows, queried each time one is shown.
struct WindowContents {
  /// Subscribes to changes of the texts; visible windows update.
  std::function<Subscription(std::function<void()>)> onTextsChanged;
  /// What the settings window shows and edits; called when the window opens.
  std::function<SettingsModels()> settings;
  /// The observer is called when further icons are decoded.
  std::function<Subscription(std::function<void()>)> onIconsDecoded;
  std::function<AppLanguage()> language;
  std::function<void(AppLanguage)> chooseLanguage;
  std::function<void()> quit;
  HotkeyList hotkeys;
  /// Calls the observer with the findings about the session, at once and after each change.
  std::function<Subscription(FindingsObserver)> watchFindings;
  /// As `watchFindings`, with failures only.
  std::function<Subscription(FindingsObserver)> watchFailures;
  /// As `watchFindings`, with what keeps edits from being saved only.
  std::function<Subscription(FindingsObserver)> watchUnsaved;
  /// Carries out the command of a finding's button; the findings may change with it.
  std::function<void(const FindingButton&)> press;
  /// Called when the settings are closed and what they showed is released.
  std::function<void()> released;
  /// Lives longer than the windows.
  Welcome* welcome = nullptr;
};

}  // namespace rondora
