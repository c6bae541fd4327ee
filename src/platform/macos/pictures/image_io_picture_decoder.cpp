#include "platform/macos/pictures/image_io_picture_decoder.h"

#include <atomic>
#include <utility>

#include "platform/macos/pictures/image_io_pictures.h"

namespace rondora::macos {
namespace {

struct Job {
  PictureRequest request;
  PictureDecoder::Completion completion;  // the main thread's
  std::atomic<bool> isGivenUp = false;
};

}  // namespace

ImageIoPictureDecoder::ImageIoPictureDecoder(MainQueue& mainQueue, std::unique_ptr<SerialQueue> queue)
    : mainQueue_(mainQueue), queue_(std::move(queue)) {}

Subscription ImageIoPictureDecoder::decode(PictureRequest request, Completion completion) {
  const auto job = std::make_shared<Job>();
  job->request = std::move(request);
  job->completion = std::move(completion);
  queue_->async([job, &mainQueue = mainQueue_]() mutable {
    if (job->isGivenUp) return;
    PictureResult result = decodePicture(job->request);
    mainQueue.async([job = std::move(job), result = std::move(result)] {
      if (const auto done = std::exchange(job->completion, nullptr)) done(result);
    });
  });
  return Subscription([job] {
    job->isGivenUp = true;
    job->completion = nullptr;
  });
}

}  // namespace rondora::macos
