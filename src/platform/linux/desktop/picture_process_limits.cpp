#include "platform/linux/desktop/picture_process_limits.h"

#include <malloc.h>
#include <sys/prctl.h>
#include <sys/resource.h>
#include <unistd.h>

#include <fstream>

namespace rondora::desktop {
namespace {

/// Bytes: three times the pixels of the largest picture that is read.
constexpr rlim_t kMemoryForPictures = rlim_t{192} << 20;
constexpr int kNiceness = 10;

/// Address space in bytes: the first field of the file, in pages (proc(5)).
rlim_t presentMemory() {
  rlim_t pages = 0;
  std::ifstream("/proc/self/statm") >> pages;
  return pages * static_cast<rlim_t>(sysconf(_SC_PAGESIZE));
}

void limit(auto resource, rlim_t value) {
  const rlimit both{value, value};
  setrlimit(resource, &both);
}

}  // namespace

void limitPictureProcess() {
  // Another arena would reserve 64 MiB of address space for each thread of the toolkit's pool.
  mallopt(M_ARENA_MAX, 1);
  setpriority(PRIO_PROCESS, 0, kNiceness);
  if (const rlim_t present = presentMemory(); present > 0) limit(RLIMIT_AS, present + kMemoryForPictures);
  limit(RLIMIT_CORE, 0);
  prctl(PR_SET_DUMPABLE, 0);
}

}  // namespace rondora::desktop
