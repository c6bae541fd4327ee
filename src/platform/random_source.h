#pragma once

#include <array>
#include <cstddef>
#include <cstdint>

#include "base/uuid.h"

namespace rondora {

class RandomSource {
 public:
  virtual ~RandomSource() = default;

  /// 64 uniformly random bits.
  virtual std::uint64_t next() = 0;

  /// Uniform in 0 … bound − 1; `bound` is at least 1.
  std::uint64_t below(std::uint64_t bound) {
    const std::uint64_t excess = (UINT64_MAX % bound + 1) % bound;
    std::uint64_t value = next();
    while (value > UINT64_MAX - excess) value = next();
    return value % bound;
  }

  /// A fresh random UUID (version 4).
  Uuid uuid() {
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t half = 0; half < 2; ++half) {
      const std::uint64_t bits = next();
      for (std::size_t i = 0; i < 8; ++i) bytes[half * 8 + i] = static_cast<std::uint8_t>(bits >> (8 * i));
    }
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x40);
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return Uuid::fromBytes(bytes);
  }
};

}  // namespace rondora
