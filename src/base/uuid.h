#pragma once

#include <array>
#include <compare>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace rondora {

/// A 128-bit identifier. Written in upper case, read without regard to case.
class Uuid {
 public:
  /// The nil UUID, all zero.
  constexpr Uuid() = default;

  static constexpr Uuid fromBytes(const std::array<std::uint8_t, 16>& bytes) {
    Uuid uuid;
    uuid.bytes_ = bytes;
    return uuid;
  }
  /// Exactly the 8-4-4-4-12 form; nullopt for anything else.
  static std::optional<Uuid> parse(std::string_view text);

  std::string string() const;
  constexpr const std::array<std::uint8_t, 16>& bytes() const { return bytes_; }

  friend auto operator<=>(const Uuid&, const Uuid&) = default;

 private:
  std::array<std::uint8_t, 16> bytes_{};
};

}  // namespace rondora
