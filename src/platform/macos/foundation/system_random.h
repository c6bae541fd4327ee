#pragma once

#include "platform/random_source.h"

namespace rondora::macos {

class SystemRandom final : public RandomSource {
 public:
  std::uint64_t next() override;
};

}  // namespace rondora::macos
