#pragma once

#include "platform/clock.h"

namespace rondora::desktop {

class SystemClock final : public Clock {
 public:
  WallTime now() const override;
  double uptime() const override;
  void sleep(double seconds) override;
};

}  // namespace rondora::desktop
