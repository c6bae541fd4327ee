// Reading all commands of an application from its menus: cold, the first time in the application's life, and warm.

#include <chrono>
#include <cstdlib>
#include <memory>
#include <stdexcept>
#include <string>

#include "commands/app_menu_command_reader.h"
#include "desktop/private_desktop.h"
#include "desktop/wait.h"
#include "desktop/x_client.h"
#include "platform/linux/menus/published_menus.h"
#include "platform/linux/x11/windows/x11_accessibility.h"
#include "platform/posix/system_clock.h"
#include "support/frame_watcher.h"
#include "support/measurement.h"
#include "support/statistics.h"

namespace rondora::bench {
namespace {

using namespace live;

constexpr int kMaxDepth = 3;
constexpr int kColdStarts = 5;

class CrawlTimer {
 public:
  CrawlTimer(std::string name, std::string command)
      : name_(std::move(name)), command_(std::move(command)), client_(desktop_.display()) {
    for (const auto& [variable, value] : desktop_.environment()) setenv(variable.c_str(), value.c_str(), 1);
    accessibility_.setMenus(menus_);
    const auto isOn = desktop_.outputOf({"busctl", "--user", "set-property", "org.a11y.Bus", "/org/a11y/bus",
                                         "org.a11y.Status", "IsEnabled", "b", "true"});
    if (!isOn) throw std::runtime_error("no accessibility bus");
  }

  void measure() {
    Samples cold, warm, rate;
    const int rounds = numberFromEnvironment("RONDORA_BENCH_OPENINGS", 500) / 10;
    for (int start = 0; start < kColdStarts; ++start) {
      const auto process = startAndWait();
      cold.add(crawl(process->pid()));
      for (int i = 0; i < rounds; ++i) {
        const double milliseconds = crawl(process->pid());
        warm.add(milliseconds);
        rate.add(static_cast<double>(items_) * 1000 / milliseconds);
      }
    }
    reportValue("menus." + name_ + ".items", "items", static_cast<double>(items_));
    report("menus." + name_ + ".cold", "ms", cold);
    report("menus." + name_ + ".warm", "ms", warm);
    report("menus." + name_ + ".rate", "items/s", rate);
  }

 private:
  std::unique_ptr<ChildProcess> startAndWait();
  /// Milliseconds.
  double crawl(pid_t process);

  std::string name_;
  std::string command_;
  PrivateDesktop desktop_{{WindowManager::openbox, Compositor::none, Tray::none}};
  XClient client_;
  menus::PublishedMenus menus_;
  x11::WorkerConnection worker_{1};
  x11::WindowOwners owners_;
  x11::X11Accessibility accessibility_{worker_, owners_};
  desktop::SystemClock clock_;
  AppMenuCommandReader reader_{accessibility_, clock_};
  std::size_t items_ = 0;
};

/// Until the menu bar can be found; nothing below it has been read then.
std::unique_ptr<ChildProcess> CrawlTimer::startAndWait() {
  auto process = desktop_.start({command_});
  const auto hasMenuBar = [&] {
    return client_.clientList().size() == 1 &&
           attributeOf<AXElementRef>(*accessibility_.application(process->pid()), "AXMenuBar").has_value();
  };
  if (!waitUntil(hasMenuBar)) throw std::runtime_error(command_ + " publishes no menus");
  return process;
}

double CrawlTimer::crawl(pid_t process) {
  const Moment begin = std::chrono::steady_clock::now();
  const auto read = reader_.readItems(process, kPatience.count(), kMaxDepth);
  const double milliseconds = millisecondsBetween(begin, std::chrono::steady_clock::now());
  items_ = read.items.size();
  if (items_ == 0) throw std::runtime_error(command_ + " has no items");
  return milliseconds;
}

void measure() {
  CrawlTimer("gtk3", "mousepad").measure();
  CrawlTimer("gtk4", "gtk4-demo-application").measure();
  CrawlTimer("qt6", "/usr/lib/qt6/bin/linguist").measure();
}

}  // namespace
}  // namespace rondora::bench

int main() { return rondora::bench::runMeasurement("menu_crawl", rondora::bench::measure); }
