#pragma once

#include <cstdio>
#include <cstdlib>

namespace rondora {

/// Aborts unless the condition holds; the fuzzer then saves the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace rondora
