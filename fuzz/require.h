#pragma once

#include <cstdio>
#include <cstdlib>

namespace rondora {

/// What has to hold for every input; where it does not, the fuzzer keeps the input.
inline void require(bool holds, const char* what) {
  if (holds) return;
  std::fprintf(stderr, "does not hold: %s\n", what);
  std::abort();
}

}  // namespace rondora
