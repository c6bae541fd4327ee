#pragma once

#include <array>
#include <string>
#include <string_view>
#include <utility>

namespace rondora {

/// Stands for a symbol that no system knows.
inline constexpr std::string_view kNeutralSymbolName = "app";
/// Stand for an application without an icon and for a web site without a picture.
inline constexpr std::string_view kApplicationSymbolName = "macwindow";
inline constexpr std::string_view kSiteSymbolName = "globe";

/// The names under which a shell looks a system symbol up, in order: its own, the same with or without its ".fill"
/// ending, the neutral one.
inline std::array<std::string, 3> symbolCandidates(std::string_view name) {
  constexpr std::string_view kFilled = ".fill";
  std::string other(name);
  if (name.ends_with(kFilled)) {
    other.resize(name.size() - kFilled.size());
  } else {
    other += kFilled;
  }
  return {std::string(name), std::move(other), std::string(kNeutralSymbolName)};
}

}  // namespace rondora
