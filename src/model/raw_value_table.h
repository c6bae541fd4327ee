#pragma once

#include <array>
#include <cstddef>
#include <optional>
#include <string_view>

namespace rondora {

/// The texts of an enumeration in case order.
template <class Enum, std::size_t count>
struct RawValueTable {
  std::array<std::string_view, count> texts;

  constexpr std::string_view text(Enum value) const { return texts.at(static_cast<std::size_t>(value)); }
  constexpr std::optional<Enum> find(std::string_view text) const {
    for (std::size_t i = 0; i < count; ++i) {
      if (texts[i] == text) return static_cast<Enum>(i);
    }
    return std::nullopt;
  }
};

}  // namespace rondora
