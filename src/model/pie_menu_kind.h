#pragma once

#include <optional>
#include <string_view>

namespace rondora {

enum class PieMenuKind { standard, runningApps, appCommands };

std::string_view rawValue(PieMenuKind kind);
std::optional<PieMenuKind> pieMenuKindFromRawValue(std::string_view raw);

}  // namespace rondora
