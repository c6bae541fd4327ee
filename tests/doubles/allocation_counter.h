#pragma once

#include <cstddef>

namespace rondora {

/// Number of allocations through `new` so far.
std::size_t allocationCount();

}  // namespace rondora
