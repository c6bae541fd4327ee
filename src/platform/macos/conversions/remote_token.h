#pragma once

#include <array>
#include <cstdint>

namespace rondora::macos {

/// What stands for an accessibility element of another process: its process and its number there.
using RemoteToken = std::array<std::uint8_t, 20>;

RemoteToken remoteToken(std::int32_t processIdentifier, std::uint64_t element);

}  // namespace rondora::macos
