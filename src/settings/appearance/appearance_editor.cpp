#include "settings/appearance/appearance_editor.h"

#include <algorithm>
#include <cmath>
#include <iterator>

#include "model/menu_name.h"
#include "pie/geometry/sector_geometry.h"
#include "settings/colors/color_text.h"
#include "settings/editing/menu_edits.h"

namespace rondora {
namespace {

using Number = double PieMenu::*;
using Toggle = bool PieMenu::*;
using Text = std::string PieMenu::*;

const AppearanceControl* controlOf(std::string_view key) {
  const auto found = std::ranges::find(kAppearanceControls, key, &AppearanceControl::key);
  return found == kAppearanceControls.end() ? nullptr : &*found;
}

bool isNumber(const AppearanceControl& control) {
  return !control.isVariant && (std::holds_alternative<Number>(control.row().member) ||
                                std::holds_alternative<LiquidGlassSettings PieMenu::*>(control.row().member));
}

double numberOf(const PieMenu& menu, const AppearanceControl& control) {
  const auto* member = std::get_if<Number>(&control.row().member);
  return member == nullptr ? menu.liquidGlass.tintOpacity : menu.*(*member);
}

double& numberOf(PieMenu& menu, const AppearanceControl& control) {
  const auto* member = std::get_if<Number>(&control.row().member);
  return member == nullptr ? menu.liquidGlass.tintOpacity : menu.*(*member);
}

bool is(const AppearanceControl& control, Number member) {
  return control.row().member == AppearanceField::Member(member);
}

/// Of a menu whose items the document holds; 0 for others.
std::int64_t sectorCount(const PieMenu& menu) {
  if (menu.kind == PieMenuKind::appCommands) return std::ssize(menu.appCommandsDefaultEntries);
  return menu.kind == PieMenuKind::standard ? std::ssize(menu.items) : 0;
}

/// Half a sector where the rotation is snapped to it.
double rotationStep(const PieMenu& menu, const AppearanceControl& control) {
  return sectorCount(menu) == 0 ? control.step : 180.0 / static_cast<double>(sectorCount(menu));
}

/// What the user can enter, in the document's unit.
NumberRange rangeOf(const PieMenu& menu, const AppearanceControl& control) {
  const AppearanceField& field = control.row();
  NumberRange range = control.editing == NumberRange{} ? field.drawn : control.editing;
  range = {std::max(range.least, field.document.least), std::min(range.most, field.document.most)};
  if (is(control, &PieMenu::innerRadius)) range.most = PieMenu::clampedInnerRadius(range.most, menu.menuRadius);
  // −180 and 180 are the same.
  if (is(control, &PieMenu::rotationDegrees)) range.least = rotationStep(menu, control) - 180;
  return range;
}

/// Copies what the control edits.
void copy(PieMenu& menu, const PieMenu& from, const AppearanceControl& control) {
  if (control.isVariant) {
    menu.liquidGlass.variant = from.liquidGlass.variant;
  } else if (isNumber(control)) {
    numberOf(menu, control) = numberOf(from, control);
  } else {
    std::visit([&](auto member) { menu.*member = from.*member; }, control.row().member);
  }
  menu.innerRadius = PieMenu::clampedInnerRadius(menu.innerRadius, menu.menuRadius);
}

/// Brings back the look of a new menu of its kind.
void restore(PieMenu& menu, const AppearanceControl& control) {
  copy(menu, PieConfiguration::templateLooks(menu.kind), control);
  if (!is(control, &PieMenu::rotationDegrees)) return;
  menu.rotationDegrees = snappedAestheticRotationDegrees(menu.rotationDegrees, sectorCount(menu));
}

bool isDefault(const PieMenu& menu, const AppearanceControl& control) {
  PieMenu reset = menu;
  restore(reset, control);
  return reset == menu;
}

/// The field shows in menus of this kind.
bool isShown(const PieMenu& menu, const AppearanceControl& control) {
  const bool showsApplication = menu.kind == PieMenuKind::appCommands;
  if (is(control, &PieMenu::centerAppIconScale)) return showsApplication;
  return !is(control, &PieMenu::centerCatScale) || !showsApplication;
}

}  // namespace

std::vector<AppearanceEditor::Menu> AppearanceEditor::menus() const {
  std::vector<Menu> menus;
  for (const PieMenu& each : history_.document().menus) menus.push_back({each.id, displayName(each)});
  return menus;
}

std::string AppearanceEditor::groupTitle(AppearanceGroup group) const {
  switch (group) {
    case AppearanceGroup::ring:
      return text(StringKey::lookRing);
    case AppearanceGroup::icons:
      return text(StringKey::lookIcons);
    case AppearanceGroup::glass:
      return text(StringKey::lookGlassGroup);
    case AppearanceGroup::animation:
      return text(StringKey::lookAnimation);
    case AppearanceGroup::middle:
      return text(StringKey::lookMiddle);
    case AppearanceGroup::keys:
      return text(StringKey::lookKeys);
  }
  return {};
}

std::vector<AppearanceRow> AppearanceEditor::rows() const {
  std::vector<AppearanceRow> rows;
  if (menu() == nullptr) return rows;
  for (const AppearanceControl& control : kAppearanceControls) {
    if (isShown(*menu(), control)) rows.push_back(row(control));
  }
  return rows;
}

AppearanceRow AppearanceEditor::row(const AppearanceControl& control) const {
  AppearanceRow row;
  row.key = control.key();
  row.group = control.group;
  row.title = text(control.title);
  row.isShared = control.row().isShared;
  row.isDefault = isDefault(*menu(), control);
  row.withoutEffect = withoutEffect(control);
  if (control.isVariant) {
    row.kind = AppearanceRow::Kind::choice;
    row.choices = {text(StringKey::lookGlassRegular), text(StringKey::lookGlassClear)};
    row.chosen = static_cast<std::size_t>(menu()->liquidGlass.variant);
  } else if (const auto* toggle = std::get_if<Toggle>(&control.row().member)) {
    row.kind = AppearanceRow::Kind::toggle;
    row.isOn = menu()->*(*toggle);
  } else if (const auto* color = std::get_if<Text>(&control.row().member)) {
    row.kind = AppearanceRow::Kind::color;
    row.color = menu()->*(*color);
  } else {
    fillNumber(row, control);
  }
  return row;
}

/// The range holds the document's value, even one that the settings would not offer.
void AppearanceEditor::fillNumber(AppearanceRow& row, const AppearanceControl& control) const {
  row.unit = control.unit;
  row.step = is(control, &PieMenu::rotationDegrees) ? rotationStep(*menu(), control) : control.step;
  double value = control.row().toDraw(numberOf(*menu(), control));
  if (is(control, &PieMenu::rotationDegrees)) value = snappedAestheticRotationDegrees(value, 0);
  const NumberRange range = rangeOf(*menu(), control);
  row.number = value * row.unit.factor;
  row.range = {std::min(range.least, value) * row.unit.factor, std::max(range.most, value) * row.unit.factor};
}

std::string AppearanceEditor::withoutEffect(const AppearanceControl& control) const {
  const bool isOfPaws = is(control, &PieMenu::pawSizeScale) || is(control, &PieMenu::pawRadialInset) ||
                        is(control, &PieMenu::centerCatScale);
  return isOfPaws && !menu()->pawDecorationEnabled ? text(StringKey::lookNeedsPaws) : "";
}

void AppearanceEditor::edit(const std::function<void(PieMenu&)>& edit, std::string_view field) {
  if (menu() == nullptr) return;
  const Uuid id = menu()->id;
  const std::string burst = field.empty() ? "" : id.string() + std::string(field);
  history_.edit(
      [&](PieConfiguration& document) {
        const auto found = std::ranges::find(document.menus, id, &PieMenu::id);
        if (found != document.menus.end()) edit(*found);
      },
      burst);
}

void AppearanceEditor::setNumber(std::string_view key, double shown) {
  const AppearanceControl* control = controlOf(key);
  if (control == nullptr || !isNumber(*control) || !std::isfinite(shown)) return;
  edit([&](PieMenu& menu) { setField(menu, *control, shown / control->unit.factor); }, key);
}

void AppearanceEditor::setField(PieMenu& menu, const AppearanceControl& control, double value) {
  double& number = numberOf(menu, control);
  if (is(control, &PieMenu::rotationDegrees)) {
    number = snappedAestheticRotationDegrees(value, sectorCount(menu));
    return;
  }
  const NumberRange range = rangeOf(menu, control);
  value = std::clamp(value, std::min(range.least, number), std::max(range.most, number));
  if (is(control, &PieMenu::menuRadius)) return setRadius(menu, value);
  number = value;
  if (is(control, &PieMenu::innerRadius)) number = PieMenu::clampedInnerRadius(value, menu.menuRadius);
}

void AppearanceEditor::setRadius(PieMenu& menu, double radius) {
  const bool isShrunk = shrunk_.menu == menu.id && shrunk_.now == menu.innerRadius;
  const double wanted = isShrunk ? shrunk_.wanted : menu.innerRadius;
  menu.menuRadius = radius;
  menu.innerRadius = PieMenu::clampedInnerRadius(wanted, radius);
  shrunk_ = {menu.id, wanted, menu.innerRadius};
}

void AppearanceEditor::setOn(std::string_view key, bool isOn) {
  const AppearanceControl* control = controlOf(key);
  const auto* member = control == nullptr ? nullptr : std::get_if<Toggle>(&control->row().member);
  if (member != nullptr) edit([&](PieMenu& menu) { menu.*(*member) = isOn; });
}

void AppearanceEditor::choose(std::string_view key, std::size_t choice) {
  const AppearanceControl* control = controlOf(key);
  if (control == nullptr || !control->isVariant) return;
  edit([&](PieMenu& menu) {
    menu.liquidGlass.variant = choice == 0 ? LiquidGlassVariant::regular : LiquidGlassVariant::clear;
  });
}

void AppearanceEditor::setColor(std::string_view key, const std::string& color) {
  const AppearanceControl* control = controlOf(key);
  const auto* member = control == nullptr ? nullptr : std::get_if<Text>(&control->row().member);
  const auto valid = colorFromText(color);
  if (member != nullptr && valid) edit([&](PieMenu& menu) { menu.*(*member) = *valid; }, key);
}

void AppearanceEditor::reset(std::string_view key) {
  const AppearanceControl* control = controlOf(key);
  if (control != nullptr) edit([&](PieMenu& menu) { restore(menu, *control); });
}

bool AppearanceEditor::isAllDefault() const {
  return menu() == nullptr || std::ranges::all_of(kAppearanceControls, [this](const AppearanceControl& control) {
           return isDefault(*menu(), control);
         });
}

void AppearanceEditor::resetAll() {
  edit([](PieMenu& menu) {
    for (const AppearanceControl& control : kAppearanceControls) restore(menu, control);
  });
}

std::size_t AppearanceEditor::differingMenus() const {
  if (menu() == nullptr) return 0;
  return static_cast<std::size_t>(std::ranges::count_if(history_.document().menus, [this](const PieMenu& each) {
    PieMenu copied = each;
    copied.applySharedVisualSettings(*menu());
    return copied != each;
  }));
}

void AppearanceEditor::copyToAll() {
  const std::size_t count = differingMenus();
  if (count == 0) return;
  const std::string notice = localization_.text(StringKey::lookCopied, displayName(*menu()), std::to_string(count));
  history_.edit([id = menu()->id](PieConfiguration& document) { MenuEdits::copyAppearanceToAll(document, id); });
  navigation_.tell(notice);
}

}  // namespace rondora
