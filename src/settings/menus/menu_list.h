#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "localization/localization_store.h"
#include "model/pie_menu.h"
#include "platform/random_source.h"
#include "settings/settings_navigation.h"

namespace rondora {

/// The list of menus in the settings, and the search over menus and items. Main thread.
class MenuList {
 public:
  struct Row {
    Uuid id;
    std::string name;
    PieMenuKind kind = PieMenuKind::standard;
    /// "#RRGGBB", of a standard menu only.
    std::string color;
    /// What opens the menu, in words; may be empty.
    std::string trigger;
    /// A special menu that is switched off.
    bool isOff = false;
    friend bool operator==(const Row&, const Row&) = default;
  };

  struct Hit {
    Uuid menu;
    /// Nothing: the menu itself.
    std::optional<PieMenuItem> item;
    std::string title;
    /// The menu of an item.
    std::string place;
    friend bool operator==(const Hit&, const Hit&) = default;
  };

  /// The references must outlive the object.
  struct Services {
    EditHistory& history;
    SettingsNavigation& navigation;
    const LocalizationStore& localization;
    RandomSource& random;
    /// What opens a menu, in words.
    std::function<std::string(const PieMenu&)> trigger;
    /// As the ring shows it.
    std::function<std::string(const PieMenuItem&)> itemTitle;
  };

  explicit MenuList(const Services& services) : services_(services) {}

  std::vector<Row> rows() const;
  /// Menus and items that contain every word of the query, menus first, in the order of the document.
  std::vector<Hit> search(std::string_view query) const;

  /// Each opens the menu that it makes.
  void add();
  void duplicate(const Uuid& menu);
  /// The user is told, and can undo it.
  void remove(const Uuid& menu);
  void move(const Uuid& menu, std::size_t place);
  /// Only standard menus can be copied and removed.
  bool isStandard(const Uuid& menu) const;

 private:
  std::string freeName(std::string_view name) const;

  Services services_;
};

}  // namespace rondora
