// From the request to place a window until its frame is the final one, seen by another client.

#include <sys/types.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands/window_ax.h"
#include "desktop/key_logger.h"
#include "desktop/private_desktop.h"
#include "desktop/wait.h"
#include "platform/linux/x11/windows/window_frame.h"
#include "platform/linux/x11/windows/x11_accessibility.h"
#include "support/measurement.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;
using Moment = std::chrono::steady_clock::time_point;

constexpr int kWarmUps = 4;
constexpr PixelRect kLeft{0, 0, 640, 800};
constexpr PixelRect kRight{640, 0, 640, 800};

class TileTimer {
 public:
  explicit TileTimer(WindowManager manager, const std::vector<std::string>& application)
      : desktop_({manager, Compositor::picom, Tray::none}), client_(desktop_.display()) {
    setenv("DISPLAY", desktop_.display().c_str(), 1);
    if (application.empty()) plain_ = std::make_unique<KeyLogger>(desktop_.display(), "plain");
    if (!application.empty()) process_ = desktop_.start(application);
    const pid_t process = process_ ? process_->pid() : getpid();
    if (!waitUntil([&] { return (window_ = WindowAX(accessibility_).targetWindow(process)) != nullptr; })) {
      throw std::runtime_error("no window");
    }
  }

  /// Milliseconds; `maximized`: of a window that is maximised before.
  double tile(bool isLeft, bool maximized) {
    const PixelRect wanted = isLeft ? kLeft : kRight;
    if (maximized) maximize();
    const Moment begin = std::chrono::steady_clock::now();
    if (!WindowAX::tile(*window_, isLeft ? WindowTile::left : WindowTile::right, {{{0, 0}, {1280, 800}}})) {
      throw std::runtime_error("the window was not placed");
    }
    if (!waitUntil([&] { return frame() == wanted; })) throw std::runtime_error("the frame is another one");
    return std::chrono::duration<double, std::milli>(std::chrono::steady_clock::now() - begin).count();
  }

 private:
  PixelRect frame() {
    const auto frame = x11::windowFrame(observer_, window_->windowNumber());
    return frame ? frame->visible() : PixelRect{};
  }

  void maximize() {
    observer_.sendToRoot(
        window_->windowNumber(), observer_.atom("_NET_WM_STATE"),
        {1, observer_.atom("_NET_WM_STATE_MAXIMIZED_VERT"), observer_.atom("_NET_WM_STATE_MAXIMIZED_HORZ"), 2, 0});
    if (!waitUntil([&] { return frame() == PixelRect{0, 0, 1280, 800}; })) throw std::runtime_error("not maximised");
  }

  PrivateDesktop desktop_;
  XClient client_;
  x11::X11Connection observer_{client_.get(), 0, 1};
  x11::WorkerConnection worker_{1};
  x11::WindowOwners owners_;
  x11::X11Accessibility accessibility_{worker_, owners_};
  std::unique_ptr<KeyLogger> plain_;
  std::unique_ptr<ChildProcess> process_;
  AXElementRef window_;
};

void measure() {
  const int count = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 2;
  struct Case {
    const char* name;
    WindowManager manager;
    std::vector<std::string> application;
    bool isMaximized;
  };
  const std::vector<std::string> editor{"env", "GTK_CSD=1", "mousepad"};
  for (const auto& [name, manager, application, isMaximized] :
       {Case{"tile.openbox", WindowManager::openbox, {}, false},
        Case{"tile.openbox.maximized", WindowManager::openbox, {}, true},
        Case{"tile.xfwm4", WindowManager::xfwm4, {}, false}, Case{"tile.metacity", WindowManager::metacity, {}, false},
        Case{"tile.xfwm4.ownShadow", WindowManager::xfwm4, editor, false},
        Case{"tile.xfwm4.ownShadow.maximized", WindowManager::xfwm4, editor, true},
        Case{"tile.metacity.ownShadow.maximized", WindowManager::metacity, editor, true}}) {
    TileTimer timer(manager, application);
    Samples samples;
    for (int i = 0; i < count + kWarmUps; ++i) {
      const double milliseconds = timer.tile(i % 2 == 0, isMaximized);
      if (i >= kWarmUps) samples.add(milliseconds);
    }
    report(name, "ms", samples);
  }
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("tile", rondora::bench::measure); }
