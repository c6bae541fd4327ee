#include "x_loop.h"

#include <poll.h>

#include <algorithm>
#include <utility>

#include "support/wait.h"
#include "support/x_reply.h"

namespace rondora::live {

std::weak_ptr<XLoop::Item> XLoop::add(double seconds, Work work) {
  const auto due = Clock::now() + std::chrono::duration_cast<Clock::duration>(std::chrono::duration<double>(seconds));
  items_.push_back(std::make_shared<Item>(Item{due, std::move(work)}));
  return items_.back();
}

Subscription XLoop::workItem(double seconds, Work work) {
  return Subscription([item = add(seconds, std::move(work))] {
    if (const auto alive = item.lock()) alive->work = nullptr;
  });
}

Subscription XLoop::timer(double interval, double /*tolerance*/, Work work) {
  auto alive = std::make_shared<Work>();
  *alive = [this, interval, work = std::move(work), weak = std::weak_ptr<Work>(alive)] {
    work();
    if (const auto self = weak.lock()) after(interval, *self);
  };
  after(interval, *alive);
  return Subscription([alive]() mutable { alive.reset(); });
}

bool XLoop::until(x11::XConnection& events, const std::function<bool()>& condition) {
  const auto deadline = Clock::now() + kPatience;
  while (!condition()) {
    if (Clock::now() > deadline) return false;
    events.flush();
    if (handleEvents(events) || runDueWork()) continue;
    pollfd waiting{xcb_get_file_descriptor(connection_), POLLIN, 0};
    poll(&waiting, 1, 1);
  }
  return true;
}

void XLoop::drain(x11::XConnection& events) {
  bool isBusy = true;
  while (isBusy) {
    ask(connection_, xcb_get_input_focus, xcb_get_input_focus_reply);
    const bool hadEvents = handleEvents(events);
    isBusy = runDueWork() || hadEvents;
  }
}

bool XLoop::handleEvents(x11::XConnection& events) {
  bool any = false;
  while (const x11::Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_)}) {
    any = true;
    if (event->response_type == 0) ++errorCount_;
    events.dispatch(*event);
  }
  return any;
}

bool XLoop::runDueWork() {
  const auto now = Clock::now();
  const auto found = std::find_if(items_.begin(), items_.end(), [&](const auto& item) { return item->due <= now; });
  if (found == items_.end()) return false;
  const std::shared_ptr<Item> item = *found;
  items_.erase(found);
  if (const Work work = item->work) work();
  return true;
}

}  // namespace rondora::live
