#include "model/pie_menu_kind.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

constexpr RawValueTable<PieMenuKind, 3> kRawValues = {{"standard", "runningApps", "appCommands"}};

}  // namespace

std::string_view rawValue(PieMenuKind kind) { return kRawValues.text(kind); }

std::optional<PieMenuKind> pieMenuKindFromRawValue(std::string_view raw) { return kRawValues.find(raw); }

}  // namespace rondora
