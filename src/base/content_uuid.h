#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

#include "base/fnv.h"
#include "base/uuid.h"

namespace rondora {

/// Makes a version 8 UUID from content alone: equal content gives the same UUID on every machine and in every build.
class ContentUuid {
 public:
  ContentUuid& add(std::string_view text) {
    add(std::uint64_t{text.size()});  // separates neighbouring texts
    addBytes(text);
    return *this;
  }
  ContentUuid& add(std::uint64_t number) {
    std::array<char, 8> bytes{};
    for (std::size_t i = 0; i < bytes.size(); ++i) bytes[i] = static_cast<char>(number >> (8 * i));
    addBytes({bytes.data(), bytes.size()});
    return *this;
  }

  Uuid uuid() const {
    std::array<std::uint8_t, 16> bytes{};
    for (std::size_t i = 0; i < 16; ++i) bytes[i] = static_cast<std::uint8_t>(halves_[i / 8] >> (8 * (i % 8)));
    bytes[6] = static_cast<std::uint8_t>((bytes[6] & 0x0F) | 0x80);  // RFC 9562: version 8
    bytes[8] = static_cast<std::uint8_t>((bytes[8] & 0x3F) | 0x80);
    return Uuid::fromBytes(bytes);
  }

 private:
  void addBytes(std::string_view bytes) {
    for (std::uint64_t& half : halves_) half = fnv1a(bytes, half);
  }

  std::array<std::uint64_t, 2> halves_{0xCBF29CE484222325, 0x6C62272E07BB0142};
};

}  // namespace rondora
