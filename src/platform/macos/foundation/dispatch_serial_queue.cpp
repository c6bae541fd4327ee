#include "platform/macos/foundation/dispatch_serial_queue.h"

#include <utility>

namespace rondora::macos {
namespace {

constexpr int kRelativePriority = 0;

dispatch_queue_t makeQueue(const std::string& label) {
  const auto drained = dispatch_queue_attr_make_with_autorelease_frequency(DISPATCH_QUEUE_SERIAL,
                                                                           DISPATCH_AUTORELEASE_FREQUENCY_WORK_ITEM);
  return dispatch_queue_create(
      label.c_str(), dispatch_queue_attr_make_with_qos_class(drained, QOS_CLASS_USER_INTERACTIVE, kRelativePriority));
}

}  // namespace

struct DispatchSerialQueue::Item {
  Ending isEnding;
  Work work;
};

DispatchSerialQueue::DispatchSerialQueue(const std::string& label) : queue_(makeQueue(label)) {}

DispatchSerialQueue::~DispatchSerialQueue() {
  *isEnding_ = true;
  dispatch_sync_f(queue_, nullptr, [](void* /*context*/) {});
  dispatch_release(queue_);
}

void DispatchSerialQueue::async(Work work) { dispatch_async_f(queue_, new Item{isEnding_, std::move(work)}, run); }

void DispatchSerialQueue::run(void* context) {
  const std::unique_ptr<Item> item(static_cast<Item*>(context));
  if (!*item->isEnding) item->work();
}

}  // namespace rondora::macos
