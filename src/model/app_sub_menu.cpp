#include "model/app_sub_menu.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

using Kind = AppSubMenuEntry::Kind;

constexpr RawValueTable<Kind, 12> kRawValues = {{"menuItem", "hideApp", "minimizeWindow", "toggleFullScreen",
                                                 "tileLeft", "tileRight", "tileTop", "tileBottom", "fillScreen",
                                                 "centerWindow", "closeWindow", "quitApp"}};

constexpr std::array kBuiltInKinds = {Kind::tileTop,    Kind::toggleFullScreen, Kind::tileRight, Kind::fillScreen,
                                      Kind::tileBottom, Kind::quitApp,          Kind::tileLeft,  Kind::centerWindow};

}  // namespace

std::vector<AppSubMenuEntry> AppSubMenuEntry::automaticBuiltIns(RandomSource& random) {
  std::vector<AppSubMenuEntry> entries;
  entries.reserve(kBuiltInKinds.size());
  for (const Kind kind : kBuiltInKinds) {
    AppSubMenuEntry entry;
    entry.id = random.uuid();
    entry.kind = kind;
    entries.push_back(std::move(entry));
  }
  return entries;
}

std::string_view rawValue(Kind kind) { return kRawValues.text(kind); }

std::optional<Kind> appSubMenuEntryKindFromRawValue(std::string_view raw) { return kRawValues.find(raw); }

}  // namespace rondora
