#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "localization/localization_store.h"
#include "settings/appearance/appearance_controls.h"
#include "settings/settings_navigation.h"

namespace rondora {

/// A control of the appearance page.
struct AppearanceRow {
  enum class Kind { number, toggle, choice, color };

  std::string_view key;
  AppearanceGroup group = AppearanceGroup::ring;
  Kind kind = Kind::number;
  std::string title;

  // A number, in the unit shown.
  double number = 0;
  NumberRange range = {};
  double step = 1;
  AppearanceUnit unit = {};

  bool isOn = false;
  std::vector<std::string> choices;
  std::size_t chosen = 0;
  /// As the document holds it.
  std::string color;

  bool isDefault = true;
  /// Copied by `AppearanceEditor::copyToAll`.
  bool isShared = true;
  /// Why the field has no effect at present; empty while it has one.
  std::string withoutEffect;
  friend bool operator==(const AppearanceRow&, const AppearanceRow&) = default;
};

/// The appearance of the menu that the settings show. Without a menu nothing has an effect. Main thread.
class AppearanceEditor {
 public:
  /// The references must outlive the object.
  AppearanceEditor(EditHistory& history, SettingsNavigation& navigation, const LocalizationStore& localization)
      : history_(history), navigation_(navigation), localization_(localization) {}

  /// Null in a document without menus.
  const PieMenu* menu() const { return navigation_.menu(); }
  struct Menu {
    Uuid id;
    std::string name;
    friend bool operator==(const Menu&, const Menu&) = default;
  };
  std::vector<Menu> menus() const;
  void showMenu(const Uuid& menu) { navigation_.showMenu(menu); }

  /// Without the fields that a menu of this kind never shows.
  std::vector<AppearanceRow> rows() const;
  std::string groupTitle(AppearanceGroup group) const;

  // Each does nothing for a row of another kind. Numbers are clamped and rotations snapped as in the wheel.
  void setNumber(std::string_view key, double shown);
  void setOn(std::string_view key, bool isOn);
  void choose(std::string_view key, std::size_t choice);
  void setColor(std::string_view key, const std::string& color);

  void reset(std::string_view key);
  bool isAllDefault() const;
  void resetAll();
  /// How many other menus look otherwise.
  std::size_t differingMenus() const;
  /// Gives all menus the appearance that menus share; the user is told, and can undo it.
  void copyToAll();

 private:
  AppearanceRow row(const AppearanceControl& control) const;
  void fillNumber(AppearanceRow& row, const AppearanceControl& control) const;
  std::string withoutEffect(const AppearanceControl& control) const;
  void edit(const std::function<void(PieMenu&)>& edit, std::string_view field = {});
  void setField(PieMenu& menu, const AppearanceControl& control, double value);
  void setRadius(PieMenu& menu, double radius);
  std::string text(StringKey key) const { return std::string(localization_.text(key)); }

  EditHistory& history_;
  SettingsNavigation& navigation_;
  const LocalizationStore& localization_;
  /// A hub that a small ring has made smaller, so that it grows again with the ring.
  struct Shrunk {
    Uuid menu;
    double wanted = 0;
    double now = 0;
  } shrunk_;
};

}  // namespace rondora
