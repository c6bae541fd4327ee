#pragma once

#include <cstdint>
#include <string_view>

namespace rondora {

/// FNV-1a with 64 bits: equal text gives the same hash on every machine and in every build. Pass an earlier result as
/// `start` to continue it.
constexpr std::uint64_t fnv1a(std::string_view text, std::uint64_t start = 0xCBF29CE484222325) {
  std::uint64_t hash = start;
  for (const char c : text) hash = (hash ^ static_cast<unsigned char>(c)) * 0x100000001B3;
  return hash;
}

}  // namespace rondora
