#pragma once

#include <CoreGraphics/CoreGraphics.h>
#include <MacTypes.h>

#include "platform/front_process.h"

namespace rondora::macos {

/// The window server's private way to bring one window of another process to the front.
class SkyLightFrontProcess final : public FrontProcess {
 public:
  SkyLightFrontProcess();

  bool available() const override { return setFrontProcess_ != nullptr; }
  Lookup processForPID(std::int32_t processIdentifier) const override;
  std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t window, std::uint32_t options) override;
  bool postsEventRecords() const override { return postEventRecord_ != nullptr; }
  void postEventRecord(ProcessSerialNumber process, const EventRecord& record) override;

 private:
  using GetProcessForPID = OSStatus (*)(pid_t processIdentifier, ::ProcessSerialNumber* process);
  using SetFrontProcess = CGError (*)(::ProcessSerialNumber* process, std::uint32_t window, std::uint32_t options);
  using PostEventRecord = CGError (*)(::ProcessSerialNumber* process, std::uint8_t* record);

  GetProcessForPID getProcessForPID_;
  SetFrontProcess setFrontProcess_;
  PostEventRecord postEventRecord_;
};

}  // namespace rondora::macos
