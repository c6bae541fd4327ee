#include "model/carbon_modifiers.h"

#include <array>
#include <utility>

#include "platform/key_event.h"

namespace rondora {
namespace {

constexpr std::array<std::pair<std::int64_t, std::uint64_t>, 5> kPairs = {{
    {carbon::kCommand, event_flags::kCommand},
    {carbon::kShift, event_flags::kShift},
    {carbon::kOption, event_flags::kOption},
    {carbon::kControl, event_flags::kControl},
    {carbon::kFunction, event_flags::kFunction},
}};

}  // namespace

std::int64_t CarbonModifiers::carbon(std::uint64_t eventFlags) {
  std::int64_t mask = 0;
  for (const auto& [carbonBit, eventBit] : kPairs) {
    if ((eventFlags & eventBit) != 0) mask |= carbonBit;
  }
  return mask;
}

std::uint64_t CarbonModifiers::eventFlags(std::int64_t carbonModifiers) {
  std::uint64_t flags = 0;
  for (const auto& [carbonBit, eventBit] : kPairs) {
    if ((carbonModifiers & carbonBit) != 0) flags |= eventBit;
  }
  return flags;
}

bool allHeld(std::uint64_t eventFlags, std::uint64_t required) {
  return (eventFlags & event_flags::kDeviceIndependentMask & required) == required;
}

}  // namespace rondora
