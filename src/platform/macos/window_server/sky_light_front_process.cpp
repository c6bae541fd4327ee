#include "platform/macos/window_server/sky_light_front_process.h"

#include "platform/macos/foundation/application_services.h"
#include "platform/macos/foundation/private_library.h"
#include "platform/macos/window_server/sky_light.h"

namespace rondora::macos {
namespace {

/// The status procNotFound.
constexpr std::int32_t kProcessNotFound = -600;

::ProcessSerialNumber systemNumber(ProcessSerialNumber process) {
  return {.highLongOfPSN = process.high, .lowLongOfPSN = process.low};
}

}  // namespace

SkyLightFrontProcess::SkyLightFrontProcess() {
  const PrivateLibrary services(kApplicationServicesPath);
  const PrivateLibrary skyLight(kSkyLightPath);
  getProcessForPID_ = services.function<GetProcessForPID>("GetProcessForPID");
  setFrontProcess_ = skyLight.function<SetFrontProcess>("_SLPSSetFrontProcessWithOptions");
  postEventRecord_ = skyLight.function<PostEventRecord>("SLPSPostEventRecordTo");
}

FrontProcess::Lookup SkyLightFrontProcess::processForPID(std::int32_t processIdentifier) const {
  if (getProcessForPID_ == nullptr) return {kProcessNotFound, {}};
  ::ProcessSerialNumber process{};
  const OSStatus status = getProcessForPID_(processIdentifier, &process);
  return {status, {process.highLongOfPSN, process.lowLongOfPSN}};
}

std::int32_t SkyLightFrontProcess::setFrontProcess(ProcessSerialNumber process, std::uint32_t window,
                                                   std::uint32_t options) {
  ::ProcessSerialNumber number = systemNumber(process);
  return available() ? setFrontProcess_(&number, window, options) : kProcessNotFound;
}

void SkyLightFrontProcess::postEventRecord(ProcessSerialNumber process, const EventRecord& record) {
  if (!postsEventRecords()) return;
  ::ProcessSerialNumber number = systemNumber(process);
  EventRecord bytes = record;
  postEventRecord_(&number, bytes.data());
}

}  // namespace rondora::macos
