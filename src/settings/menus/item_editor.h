#pragma once

#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "input/hotkeys/hotkey_display.h"
#include "input/recording/hotkey_recorder.h"
#include "localization/localization_store.h"
#include "model/pie_menu_item.h"
#include "settings/settings_navigation.h"

namespace rondora {

/// The item that the settings show. Without an item nothing has an effect. Main thread.
class ItemEditor {
 public:
  /// In the order in which they are offered.
  enum class Kind { none, application, address, keystroke, snippet, system };
  static constexpr std::array<Kind, 6> kKinds = {Kind::none,      Kind::application, Kind::address,
                                                 Kind::keystroke, Kind::snippet,     Kind::system};

  struct SystemChoice {
    MacOSSystemActionKind kind = MacOSSystemActionKind::missionControl;
    std::string name;
    bool isAvailable = true;
  };

  /// The references must outlive the object.
  struct Services {
    EditHistory& history;
    SettingsNavigation& navigation;
    const LocalizationStore& localization;
    HotkeyRecorder::Ports recorder;
    ModifierNames modifierNames;
    /// The user's name of an installed application.
    std::function<std::optional<std::string>(std::string_view bundleIdentifier)> applicationName;
    /// This desktop can carry out the action.
    std::function<bool(MacOSSystemActionKind)> canDo;
    std::function<std::string()> snippetHint;
    /// Runs the action; `ended` gets what went wrong, in the user's language, or nothing.
    std::function<void(const PieMenuItem&, std::function<void(std::string problem)> ended)> run;
  };

  explicit ItemEditor(const Services& services);

  /// Null while none is chosen.
  const PieMenuItem* item() const { return services_.navigation.item(); }
  /// The observer is called when something other than the document changes: a recording, the outcome of an attempt.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

  void setTitle(const std::string& title);

  Kind kind() const;
  std::string kindName(Kind kind) const;
  /// A kind that the item had before gets its value back.
  void setKind(Kind kind);
  /// What the user still has to do for the action, or what is wrong with it; empty for nothing.
  std::string problem() const;

  /// Empty without one.
  std::string applicationName() const;
  std::string applicationIdentifier() const;
  /// An item that has no title or icon of the user's choice gets those of the application.
  void setApplication(const std::string& bundleIdentifier);

  std::string address() const;
  void setAddress(const std::string& address);

  std::string keystrokeText() const;
  bool isRecording() const { return recorded_.has_value(); }
  /// Starts or ends the recording.
  void toggleRecording();
  void cancelRecording();

  std::string snippet() const;
  void setSnippet(const std::string& text);
  std::string snippetHint() const { return services_.snippetHint ? services_.snippetHint() : ""; }

  /// Those that the desktop can do, and that of the item.
  std::vector<SystemChoice> systemChoices() const;
  void setSystem(MacOSSystemActionKind kind);

  void setIcon(const std::string& icon);
  void setColor(const std::string& color);
  /// Nothing: the program chooses.
  void setIconColor(std::optional<std::string> color);

  /// The key that the item has without one of its own, to be shown in an empty field.
  std::string automaticLabel() const;
  std::string label() const;
  /// Empty for an automatic one. False, and the item keeps its label, for a text that is no label.
  bool setLabel(const std::string& text);
  /// What is wrong with the label; empty for nothing.
  std::string labelProblem() const;

  /// Runs the action.
  void tryIt();
  /// What the latest attempt with the item led to; empty for none.
  std::string attempt() const;

 private:
  struct Former {
    Uuid item;
    MenuAction action;
  };

  void edit(const std::function<void(PieMenuItem&)>& edit, std::string_view field = {});
  MenuAction formerAction(Kind kind) const;
  void setAction(MenuAction action, std::string_view field = {});
  void recorded(const HotkeyConfig& keys);
  bool hasAutomaticIcon() const;
  std::string text(StringKey key) const { return std::string(services_.localization.text(key)); }

  Services services_;
  HotkeyRecorder recorder_;
  /// The item whose keys are recorded.
  std::optional<Uuid> recorded_;
  std::string recordingProblem_;
  /// The item with a text in the field that is no label.
  std::optional<Uuid> invalidLabel_;
  std::optional<Uuid> attempted_;
  std::string attempt_;
  /// The actions of other kinds that items had.
  std::vector<Former> former_;
  Signal<> changed_;
  WeakSelf<ItemEditor> weakSelf_{this};
};

}  // namespace rondora
