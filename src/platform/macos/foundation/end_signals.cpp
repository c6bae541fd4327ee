#include "platform/macos/foundation/end_signals.h"

#include <csignal>
#include <utility>

namespace rondora::macos {
namespace {

/// SIGHUP: the terminal or the session's leader is gone.
constexpr int kEndSignals[] = {SIGINT, SIGTERM, SIGHUP};

}  // namespace

EndSignals::EndSignals(std::function<void()> ended) : ended_(std::move(ended)) {
  for (const int signal : kEndSignals) {
    // A source reports a signal also while the process ignores it.
    if (std::signal(signal, SIG_IGN) == SIG_IGN) continue;
    dispatch_source_t source = dispatch_source_create(DISPATCH_SOURCE_TYPE_SIGNAL, static_cast<std::uintptr_t>(signal),
                                                      0, dispatch_get_main_queue());
    dispatch_set_context(source, this);
    dispatch_source_set_event_handler_f(source, [](void* self) { static_cast<EndSignals*>(self)->ended_(); });
    dispatch_activate(source);
    sources_.push_back(source);
  }
}

EndSignals::~EndSignals() {
  for (dispatch_source_t source : sources_) {
    dispatch_source_cancel(source);
    dispatch_release(source);
  }
}

}  // namespace rondora::macos
