#pragma once

#include <xcb/xcb.h>

#include <cstddef>
#include <cstdint>
#include <span>
#include <string_view>

namespace rondora::x11 {

/// The 32-bit values (windows, atoms, cardinals) of a property; empty for no reply, a missing property and another
/// format. Valid while the reply lives.
inline std::span<const std::uint32_t> values32(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 32) return {};
  return {static_cast<const std::uint32_t*>(xcb_get_property_value(reply)),
          static_cast<std::size_t>(xcb_get_property_value_length(reply)) / sizeof(std::uint32_t)};
}

/// The bytes of a text property; otherwise as `values32`.
inline std::string_view text8(const xcb_get_property_reply_t* reply) {
  if (reply == nullptr || reply->format != 8) return {};
  return {static_cast<const char*>(xcb_get_property_value(reply)),
          static_cast<std::size_t>(xcb_get_property_value_length(reply))};
}

}  // namespace rondora::x11
