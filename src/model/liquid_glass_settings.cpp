#include "model/liquid_glass_settings.h"

#include "model/raw_value_table.h"

namespace rondora {
namespace {

constexpr RawValueTable<LiquidGlassVariant, 2> kRawValues = {{"regular", "clear"}};

}  // namespace

std::string_view rawValue(LiquidGlassVariant variant) { return kRawValues.text(variant); }

std::optional<LiquidGlassVariant> liquidGlassVariantFromRawValue(std::string_view raw) { return kRawValues.find(raw); }

}  // namespace rondora
