#include "commands/queue_readings.h"

namespace rondora {

std::function<bool()> QueueReadings::makeIsCancelled() const {
  return [count = cancellations_, begun = cancellations_->load()] { return *count != begun; };
}

}  // namespace rondora
