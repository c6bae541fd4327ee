#include "platform/linux/desktop/thread_name.h"

#include <pthread.h>

namespace rondora::desktop {
namespace {

constexpr std::size_t kMaxLength = 15;  // bytes, pthread_setname_np(3)

}  // namespace

void nameThread(const std::string& label) {
  const std::size_t cut = label.size() > kMaxLength ? label.size() - kMaxLength : 0;
  pthread_setname_np(pthread_self(), label.c_str() + cut);
}

}  // namespace rondora::desktop
