#include "platform/macos/foundation/system_random.h"

#include <cstdlib>

namespace rondora::macos {

std::uint64_t SystemRandom::next() {
  std::uint64_t value = 0;
  arc4random_buf(&value, sizeof value);
  return value;
}

}  // namespace rondora::macos
