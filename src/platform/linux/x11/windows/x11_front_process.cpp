#include "platform/linux/x11/windows/x11_front_process.h"

#include "platform/linux/x11/windows/window_activation.h"

namespace rondora::x11 {
namespace {

/// kCGErrorIllegalArgument, the error for a window that does not exist.
constexpr std::int32_t kIllegalArgument = 1001;

}  // namespace

FrontProcess::Lookup X11FrontProcess::processForPID(std::int32_t processIdentifier) const {
  return {0, {0, static_cast<std::uint32_t>(processIdentifier)}};
}

std::int32_t X11FrontProcess::setFrontProcess(ProcessSerialNumber process, std::uint32_t window,
                                              std::uint32_t /*options*/) {
  const auto target = windows_.describe(window);
  if (!target) return kIllegalArgument;
  const xcb_window_t active = windows_.activeWindow();
  owners_.setActiveBefore(active);
  const auto frontmost = workspace_.frontmostApplication();
  const bool isInFront = frontmost && static_cast<std::uint32_t>(frontmost->processIdentifier) == process.low;
  if (!isInFront) activateWindow(connection_, *target, active);
  return 0;
}

}  // namespace rondora::x11
