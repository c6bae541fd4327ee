#include "platform/posix/picture_service.h"

#include <sys/resource.h>
#include <unistd.h>

#include <algorithm>
#include <string_view>

#include "platform/posix/file_descriptor.h"
#include "platform/posix/message_channel.h"
#include "platform/posix/picture_messages.h"

namespace rondora::desktop {
namespace {

/// At least; at most one more. A PNG of 16 million pixels in 14 MB takes 0.4.
constexpr rlim_t kProcessorSeconds = 1;
/// Real time; for when the program, which gives up earlier, cannot end this process.
constexpr unsigned kBlockedSeconds = 8;

/// Counted in whole seconds from the start of the process, by the soft limit: exceeding it ends the process.
void limitTimeFromNow() {
  rusage used{};
  getrusage(RUSAGE_SELF, &used);
  rlimit limit{};
  getrlimit(RLIMIT_CPU, &limit);
  const auto spent = static_cast<rlim_t>(used.ru_utime.tv_sec + used.ru_stime.tv_sec);
  limit.rlim_cur = std::min(spent + 1 + kProcessorSeconds, limit.rlim_max);
  setrlimit(RLIMIT_CPU, &limit);
  alarm(kBlockedSeconds);
}

}  // namespace

bool isPictureService(int argc, const char* const* argv) {
  return argc == 1 && std::string_view(argv[0]) == kPictureServiceName;
}

void servePictures(const std::function<PictureResult(const PictureRequest&)>& decode) {
  MessageChannel channel{FileDescriptor(kPictureServiceDescriptor)};
  bool isConnected = channel.send({}, {});
  while (isConnected) {
    const auto message = channel.receive({});
    if (!message) return;
    limitTimeFromNow();
    const auto request = unpackedRequest(*message);
    const PictureResult result = request ? decode(*request) : PictureResult{};
    alarm(0);
    isConnected = channel.send(packed(result), {});
  }
}

}  // namespace rondora::desktop
