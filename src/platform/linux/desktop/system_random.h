#pragma once

#include "platform/random_source.h"

namespace rondora::desktop {

/// The kernel's random numbers.
class SystemRandom final : public RandomSource {
 public:
  std::uint64_t next() override;
};

}  // namespace rondora::desktop
