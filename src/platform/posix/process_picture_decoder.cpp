#include "platform/posix/process_picture_decoder.h"

#include <atomic>
#include <utility>

namespace rondora::desktop {
namespace {

/// Seconds without work after which the child ends.
constexpr double kIdleTime = 3;

}  // namespace

struct ProcessPictureDecoder::Job {
  PictureRequest request;
  Completion completion;  // the main thread's
  std::atomic<bool> isWanted = true;
  PictureResult result;
};

ProcessPictureDecoder::ProcessPictureDecoder(std::string program, MainQueue& mainQueue,
                                             std::unique_ptr<SerialQueue> queue)
    : mainQueue_(mainQueue), process_(std::move(program)), queue_(std::move(queue)) {}

ProcessPictureDecoder::~ProcessPictureDecoder() {
  process_.interrupt();
  queue_.reset();
}

Subscription ProcessPictureDecoder::decode(PictureRequest request, Completion completion) {
  const auto job = std::make_shared<Job>();
  job->request = std::move(request);
  job->completion = std::move(completion);
  idleEnd_.reset();
  ++unfinishedJobs_;
  queue_->async([this, job, finish = weakSelf_.bind([job](ProcessPictureDecoder& self) { self.completed(*job); })] {
    if (job->isWanted) job->result = process_.decode(job->request);
    mainQueue_.async(finish);
  });
  return Subscription([job] {
    job->isWanted = false;
    job->completion = nullptr;
  });
}

void ProcessPictureDecoder::completed(Job& job) {
  if (--unfinishedJobs_ == 0) {
    idleEnd_ = mainQueue_.workItem(kIdleTime, weakSelf_.bind([](ProcessPictureDecoder& self) {
      self.queue_->async([&process = self.process_] { process.end(); });
    }));
  }
  // May destroy the decoder or request another picture.
  if (const auto completion = std::exchange(job.completion, nullptr)) completion(job.result);
}

}  // namespace rondora::desktop
