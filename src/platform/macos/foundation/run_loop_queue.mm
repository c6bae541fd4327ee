#include "platform/macos/foundation/run_loop_queue.h"

#include <CoreFoundation/CoreFoundation.h>
#include <dispatch/dispatch.h>

#include <algorithm>
#include <utility>

#include "platform/macos/foundation/cf_ref.h"

namespace rondora::macos {
namespace {

using Work = MainQueue::Work;
using Timer = CFRef<CFRunLoopTimerRef>;

/// An interval of a timer that fires once.
constexpr CFTimeInterval kOnce = 0;

/// The run loop's own pool lasts until the next event of the user.
void runPooled(const Work& work) {
  @autoreleasepool {
    work();
  }
}

void runAndDelete(void* context) {
  const std::unique_ptr<Work> work(static_cast<Work*>(context));
  runPooled(*work);
}

// The work lives as long as the timer, and until its own call returns.
using SharedWork = std::shared_ptr<Work>;

void fire(CFRunLoopTimerRef /*timer*/, void* info) {
  const SharedWork work = *static_cast<const SharedWork*>(info);
  runPooled(*work);
}

const void* retainWork(const void* info) { return new SharedWork(*static_cast<const SharedWork*>(info)); }

void releaseWork(const void* info) { delete static_cast<const SharedWork*>(info); }

Timer startTimer(double seconds, CFTimeInterval interval, Work work) {
  SharedWork shared = std::make_shared<Work>(std::move(work));
  CFRunLoopTimerContext context{0, &shared, retainWork, releaseWork, nullptr};
  Timer timer = Timer::adopt(
      CFRunLoopTimerCreate(kCFAllocatorDefault, CFAbsoluteTimeGetCurrent() + seconds, interval, 0, 0, fire, &context));
  CFRunLoopAddTimer(CFRunLoopGetMain(), timer.get(), kCFRunLoopCommonModes);
  return timer;
}

Subscription untilReset(Timer timer) {
  return Subscription([timer = std::move(timer)] { CFRunLoopTimerInvalidate(timer.get()); });
}

}  // namespace

Work RunLoopQueue::whileAlive(Work work) const {
  return [life = std::weak_ptr(life_), work = std::move(work)] {
    if (!life.expired()) work();
  };
}

void RunLoopQueue::async(Work work) {
  dispatch_async_f(dispatch_get_main_queue(), new Work(whileAlive(std::move(work))), runAndDelete);
}

void RunLoopQueue::after(double seconds, Work work) { startTimer(seconds, kOnce, whileAlive(std::move(work))); }

Subscription RunLoopQueue::workItem(double seconds, Work work) {
  return untilReset(startTimer(seconds, kOnce, whileAlive(std::move(work))));
}

Subscription RunLoopQueue::timer(double interval, double tolerance, Work work) {
  Timer timer = startTimer(interval, interval, whileAlive(std::move(work)));
  CFRunLoopTimerSetTolerance(timer.get(), tolerance);
  return untilReset(std::move(timer));
}

}  // namespace rondora::macos
