#include "platform/linux/desktop/system_random.h"

#include <sys/random.h>

namespace rondora::desktop {

std::uint64_t SystemRandom::next() {
  std::uint64_t value = 0;
  // Requests of up to 256 bytes return whole; only a signal during early boot interrupts one (getrandom(2)).
  while (getrandom(&value, sizeof value, 0) != static_cast<ssize_t>(sizeof value)) {
  }
  return value;
}

}  // namespace rondora::desktop
