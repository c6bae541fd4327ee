#include "model/menu_action.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

constexpr RawValueTable<MacOSSystemActionKind, 6> kRawValues = {
    {"missionControl", "applicationWindows", "quickNote", "startScreenSaver", "displaySleep", "lockScreen"}};

}  // namespace

std::string_view rawValue(MacOSSystemActionKind kind) { return kRawValues.text(kind); }

std::optional<MacOSSystemActionKind> systemActionFromRawValue(std::string_view raw) { return kRawValues.find(raw); }

}  // namespace rondora
