#pragma once

#include <memory>
#include <string>

#include "base/weak_self.h"
#include "platform/main_queue.h"
#include "platform/picture_decoder.h"
#include "platform/posix/picture_process.h"
#include "platform/serial_queue.h"

namespace rondora::desktop {

/// Decodes pictures one at a time in a child process, which runs only while there is work and shortly after.
class ProcessPictureDecoder final : public PictureDecoder {
 public:
  /// `program` as in PictureProcess. `queue` waits for the child, so nothing else should run on it.
  ProcessPictureDecoder(std::string program, MainQueue& mainQueue, std::unique_ptr<SerialQueue> queue);
  ~ProcessPictureDecoder() override;

  [[nodiscard]] Subscription decode(PictureRequest request, Completion completion) override;

 private:
  struct Job;

  void completed(Job& job);

  MainQueue& mainQueue_;
  PictureProcess process_;  // the queue's, but for `interrupt`
  std::unique_ptr<SerialQueue> queue_;
  int unfinishedJobs_ = 0;
  Subscription idleEnd_;
  WeakSelf<ProcessPictureDecoder> weakSelf_{this};
};

}  // namespace rondora::desktop
