#pragma once

#include <functional>
#include <optional>
#include <string>

#include "base/notification_center.h"
#include "base/observable.h"
#include "base/uuid.h"
#include "base/weak_self.h"
#include "input/hotkeys/hotkey_display.h"
#include "input/hotkeys/hotkey_manager.h"
#include "input/recording/hotkey_recorder.h"
#include "localization/localization_store.h"
#include "model/pie_menu.h"
#include "settings/editing/edit_history.h"
#include "settings/window_contents.h"

namespace rondora {

/// The hotkeys of the document's menus as the settings list, record and remove them. Main thread.
class HotkeyEditing {
 public:
  /// The references must outlive the object.
  struct Services {
    HotkeyRecorder::Ports recorder;
    EditHistory& edits;
    NotificationCenter& notifications;
    const LocalizationStore& localization;
    ModifierNames modifierNames;
    /// Null before the launch.
    std::function<const HotkeyManager*()> hotkeys;
  };

  explicit HotkeyEditing(const Services& services);

  /// For the settings window; its functions are valid as long as this object.
  HotkeyList list();
  /// Ends a recording without a result.
  void cancel();

 private:
  /// What was wrong with the latest recording.
  struct Note {
    Uuid menu;
    std::string text;
  };

  void toggleRecording(const Uuid& menu);
  void recorded(const HotkeyConfig& hotkey);
  std::string problem(const HotkeyConfig& hotkey, const Uuid& menu) const;
  void assign(const Uuid& menu, const HotkeyConfig& hotkey);
  void publish();
  HotkeyRows rows() const;
  HotkeyRow row(const PieMenu& menu) const;
  std::string note(const PieMenu& menu) const;
  std::string words(const HotkeyConfig& hotkey) const;
  std::string recordingWords() const;

  Services services_;
  HotkeyRecorder recorder_;
  std::optional<Uuid> recording_;
  std::optional<Note> note_;
  CurrentValue<HotkeyRows> rows_{{}};
  Signal<> clicked_;
  Subscription documentObserver_;
  WeakSelf<HotkeyEditing> weakSelf_{this};
};

}  // namespace rondora
