#pragma once

#include <array>
#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "base/observable.h"
#include "base/uuid.h"
#include "settings/editing/edit_history.h"

namespace rondora {

enum class SettingsPage { menu, general, appearance, session, backup };
/// Those beside the menus, in the order of the sidebar.
inline constexpr std::array kSettingsPages = {SettingsPage::general, SettingsPage::appearance, SettingsPage::session,
                                              SettingsPage::backup};

/// Which page the settings show, and of which menu and item. A menu or item that vanishes is replaced by its neighbour.
/// Main thread.
class SettingsNavigation {
 public:
  /// `history` must outlive the object.
  explicit SettingsNavigation(EditHistory& history);

  SettingsPage page() const { return page_; }
  void open(SettingsPage page);
  /// Opens the menu or page so many entries further in the sidebar; at its end the other end follows.
  void step(int entries);
  /// Opens the page of that menu.
  void openMenu(const Uuid& menu, std::optional<Uuid> item = std::nullopt);
  /// Null in a document without menus.
  const PieMenu* menu() const { return history_.document().menu(menu_); }
  /// Shows that menu on the page that is open.
  void showMenu(const Uuid& menu);
  /// Chooses an item of the menu, or none.
  void choose(std::optional<Uuid> item);
  /// Null while none is chosen.
  const PieMenuItem* item() const;

  /// What is shown is new: the user names it next.
  void nameNext() { isNew_ = true; }
  /// Once for each call of `nameNext`.
  bool takeNaming() { return std::exchange(isNew_, false); }

  /// Tells the user what an edit did besides the visible; undo takes it back. Shown until the page, menu or document
  /// changes again.
  void tell(std::string notice);
  const std::string& notice() const { return notice_; }
  void dismissNotice();

  /// The observer is called after each change of page, choice, notice or document.
  [[nodiscard]] Subscription onChanged(std::function<void()> observer) const {
    return changed_.subscribe(std::move(observer));
  }

 private:
  struct Place {
    Uuid menu;
    std::optional<Uuid> item;
  };

  void documentChanged();
  bool isThere(const Place& place) const;
  void remember(Place place);
  void follow();

  EditHistory& history_;
  SettingsPage page_ = SettingsPage::menu;
  Uuid menu_;
  std::size_t menuPlace_ = 0;
  std::optional<Uuid> item_;
  std::size_t itemPlace_ = 0;
  /// What was shown when it was removed, latest last: shown again when it comes back.
  std::vector<Place> vanished_;
  bool isNew_ = false;
  std::string notice_;
  Signal<> changed_;
  Subscription documents_;
};

}  // namespace rondora
