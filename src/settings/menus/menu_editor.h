#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "localization/localization_store.h"
#include "model/pie_menu.h"
#include "platform/random_source.h"
#include "settings/settings_navigation.h"
#include "storage/pie_menu_item_pasteboard.h"

namespace rondora {

/// The menu that the settings show: its name, triggers and items. Without a menu nothing has an effect. Main thread.
class MenuEditor {
 public:
  struct ItemRow {
    PieMenuItem item;
    std::string title;
    /// Its quick-select key; may be empty.
    std::string label;
    friend bool operator==(const ItemRow&, const ItemRow&) = default;
  };

  /// The references must outlive the object.
  struct Services {
    EditHistory& history;
    SettingsNavigation& navigation;
    const LocalizationStore& localization;
    RandomSource& random;
    Pasteboard& pasteboard;
    /// As the ring shows it.
    std::function<std::string(const PieMenuItem&)> itemTitle;
    /// What keeps taps on the trackpad from opening a menu, in the user's language; empty for nothing.
    std::function<std::string()> trackpadNote;
  };

  static constexpr std::array<std::int64_t, 4> kFingerCounts = {0, 3, 4, 5};

  explicit MenuEditor(const Services& services)
      : services_(services), pasteboard_(services.pasteboard, services.random) {}

  /// Null in a document without menus.
  const PieMenu* menu() const { return services_.navigation.menu(); }
  bool isStandard() const { return menu() != nullptr && menu()->kind == PieMenuKind::standard; }
  /// What a special menu shows; empty for a standard one.
  std::string description() const;

  void setName(const std::string& name);
  /// Of a special menu.
  void setEnabled(bool isEnabled);
  /// "#RRGGBB": its mark in the list of menus.
  void setColor(const std::string& color);
  /// The user is told which menu loses the tap.
  void setFingerCount(std::int64_t count);
  void setRotation(double degrees);
  std::string fingerCountText(std::int64_t count) const;
  std::string trackpadNote() const;

  /// In ring order.
  std::vector<ItemRow> items() const;
  std::string title(const PieMenuItem& item) const;
  std::optional<std::size_t> place(const Uuid& item) const;

  /// Each chooses the item that it makes.
  void addItem();
  void duplicateItem(const Uuid& item);
  bool canPaste() const;
  void pasteItem();
  void copyItem(const Uuid& item);
  /// The user is told, and can undo it.
  void removeItem(const Uuid& item);
  void moveItem(const Uuid& item, std::size_t place);

 private:
  void edit(const std::function<void(PieMenu&)>& edit, std::string_view field = {});
  void insert(PieMenuItem item, std::size_t place);
  std::size_t placeBehindChosen() const;

  Services services_;
  PieMenuItemPasteboard pasteboard_;
};

}  // namespace rondora
