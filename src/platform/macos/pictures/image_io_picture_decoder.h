#pragma once

#include <memory>

#include "platform/main_queue.h"
#include "platform/picture_decoder.h"
#include "platform/serial_queue.h"

namespace rondora::macos {

/// Decodes pictures one at a time with the system's decoders, in this process: their time is not limited, their memory
/// by the size that a file states.
class ImageIoPictureDecoder final : public PictureDecoder {
 public:
  /// Nothing else should run on `queue`.
  ImageIoPictureDecoder(MainQueue& mainQueue, std::unique_ptr<SerialQueue> queue);

  [[nodiscard]] Subscription decode(PictureRequest request, Completion completion) override;

 private:
  MainQueue& mainQueue_;
  std::unique_ptr<SerialQueue> queue_;
};

}  // namespace rondora::macos
