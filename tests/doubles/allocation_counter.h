#pragma once

#include <cstddef>

namespace rondora {

/// How often this program has asked for memory through `new` so far.
std::size_t allocationCount();

}  // namespace rondora
