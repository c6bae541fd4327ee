#pragma once

#include <array>
#include <functional>
#include <string>

#include "base/observable.h"
#include "localization/localization_store.h"

namespace rondora {

/// What the welcome shows, in the user's language.
struct WelcomeContents {
  struct Step {
    std::string text;
    /// For screen readers: whether it is done, and the text.
    std::string name;
    bool isDone = false;
    /// The one that the user is to take now.
    bool isNext = false;
  };

  std::string title;
  std::string headline;
  std::string introduction;
  /// To open the ring, and to choose an item.
  std::array<Step, 2> steps;
  /// Shown as key caps below the first step, its parts separated by "+"; empty for none.
  std::string hotkey;
  /// The titles of the buttons for users whom the hotkey does not help; empty for none.
  std::string openRing;
  std::string chooseHotkey;
  std::string whereItLives;
  std::string language;
  /// Screen-reader names of the marks before the findings.
  std::string works;
  std::string fails;
  /// The title of the button that closes the window; with all steps done it is the default button.
  std::string close;
  bool isDone = false;
};

/// Leads a new user to a ring opened and an item chosen. Main thread.
class Welcome {
 public:
  struct Facts {
    /// Display text of the first hotkey that opens a ring; empty when none works.
    std::string hotkey;
    /// It is that of the first menu, and arrives whichever window has the keyboard.
    bool isHotkeyReliable = true;
  };
  /// The reference must outlive the object.
  struct Services {
    const LocalizationStore& localization;
    std::string documentPath;
    std::function<Facts()> facts;
    std::function<void()> openRing;
    std::function<void()> chooseHotkey;
  };

  explicit Welcome(Services services) : services_(std::move(services)) {}

  WelcomeContents contents() const;
  void openRing() const { services_.openRing(); }
  void chooseHotkey() const { services_.chooseHotkey(); }

  void ringOpened();
  /// The ring that opened last was gone before anyone could use it.
  void ringWasTapped();
  void itemChosen();
  /// Call it when the facts have changed.
  void refresh() const { changed_.send(); }
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  WelcomeContents::Step step(StringKey text, bool isDone, bool isNext, const std::string& argument = {}) const;
  std::string text(StringKey key) const { return std::string(services_.localization.text(key)); }

  Services services_;
  int openings_ = 0;
  bool isItemChosen_ = false;
  Signal<> changed_;
};

}  // namespace rondora
