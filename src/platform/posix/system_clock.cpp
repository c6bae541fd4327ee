#include "platform/posix/system_clock.h"

#include <cerrno>
#include <cmath>
#include <ctime>

namespace rondora::desktop {
namespace {

/// 2001-01-01 00:00:00 UTC in seconds since 1970.
constexpr double kReferenceDate = 978307200;

// Stands still while the machine sleeps, as the time of events does.
#ifdef CLOCK_UPTIME_RAW
constexpr clockid_t kUptime = CLOCK_UPTIME_RAW;
#else
constexpr clockid_t kUptime = CLOCK_MONOTONIC;
#endif

double read(clockid_t clock) {
  timespec time{};
  clock_gettime(clock, &time);
  return static_cast<double>(time.tv_sec) + static_cast<double>(time.tv_nsec) * 1e-9;
}

}  // namespace

WallTime SystemClock::now() const { return read(CLOCK_REALTIME) - kReferenceDate; }

double SystemClock::uptime() const { return read(kUptime); }

void SystemClock::sleep(double seconds) {
  if (!(seconds > 0)) return;
  const double whole = std::floor(seconds);
  timespec rest{static_cast<time_t>(whole), static_cast<long>((seconds - whole) * 1e9)};
  while (nanosleep(&rest, &rest) == -1 && errno == EINTR) {
  }
}

}  // namespace rondora::desktop
