#include "platform/linux/x11/windows/window_manager_sync.h"

#include <poll.h>

#include <algorithm>
#include <thread>

#include "platform/linux/x11/windows/window_manager.h"

namespace rondora::x11 {
namespace {

/// For window managers that answer before they have done everything, and those that do not answer.
constexpr std::chrono::milliseconds kPause{2};
/// As many as an idle machine has time for in a fraction of kPatience.
constexpr int kAnswersOfItsTurn = 20;

}  // namespace

WindowManagerSync::WindowManagerSync(const X11Connection& connection)
    : connection_(connection), window_(xcb_generate_id(connection.get())) {
  connection.internAtoms({"_NET_REQUEST_FRAME_EXTENTS", "_NET_FRAME_EXTENTS"});
  constexpr std::uint32_t kValues[] = {1, XCB_EVENT_MASK_PROPERTY_CHANGE};  // override-redirect
  xcb_create_window(connection.get(), 0, window_, connection.root(), -1, -1, 1, 1, 0, XCB_WINDOW_CLASS_INPUT_ONLY,
                    XCB_COPY_FROM_PARENT, XCB_CW_OVERRIDE_REDIRECT | XCB_CW_EVENT_MASK, kValues);
}

bool WindowManagerSync::until(const std::function<bool()>& condition) const {
  const Moment begin = std::chrono::steady_clock::now();
  const bool mayAnswer = managerSupports(connection_, "_NET_REQUEST_FRAME_EXTENTS");
  for (int answers = 0;;) {
    if (mayAnswer && awaitAnswer(begin + kPatienceWhileBusy)) ++answers;
    connection_.flush();
    if (condition()) return true;
    const bool hadItsTurn = !mayAnswer || answers >= kAnswersOfItsTurn;
    if (std::chrono::steady_clock::now() - begin >= (hadItsTurn ? kPatience : kPatienceWhileBusy)) return false;
    std::this_thread::sleep_for(kPause);
  }
}

bool WindowManagerSync::awaitAnswer(Moment deadline) const {
  takeAnswer();
  connection_.sendToRoot(window_, connection_.atom("_NET_REQUEST_FRAME_EXTENTS"), {});
  connection_.flush();
  while (!takeAnswer()) {
    const auto remaining =
        std::chrono::duration_cast<std::chrono::milliseconds>(deadline - std::chrono::steady_clock::now()).count();
    pollfd descriptor{xcb_get_file_descriptor(connection_.get()), POLLIN, 0};
    if (remaining <= 0 || poll(&descriptor, 1, static_cast<int>(remaining)) < 0) return false;
    if (xcb_connection_has_error(connection_.get()) != 0) return false;
  }
  return true;
}

/// Discards all events that have arrived; true when the answer was among them.
bool WindowManagerSync::takeAnswer() const {
  bool isThere = false;
  while (const Reply<xcb_generic_event_t> event{xcb_poll_for_event(connection_.get())}) {
    if ((event->response_type & 0x7F) != XCB_PROPERTY_NOTIFY) continue;
    const auto& change = reinterpret_cast<const xcb_property_notify_event_t&>(*event);
    isThere = isThere || (change.window == window_ && change.atom == connection_.atom("_NET_FRAME_EXTENTS"));
  }
  return isThere;
}

}  // namespace rondora::x11
