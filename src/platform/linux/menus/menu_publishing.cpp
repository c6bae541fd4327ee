#include "platform/linux/menus/menu_publishing.h"

#include <unistd.h>

#include <algorithm>
#include <atomic>
#include <fstream>
#include <mutex>
#include <optional>
#include <set>
#include <utility>

#include "platform/linux/menus/atspi_search.h"
#include "platform/linux/menus/call_batch.h"
#include "platform/linux/menus/dbus_menu_source.h"

namespace rondora::menus {
namespace {

using Processes = std::set<std::int32_t>;

constexpr BusMethod kGet{"org.freedesktop.DBus.Properties", "Get"};
constexpr BusMethod kSet{"org.freedesktop.DBus.Properties", "Set"};
constexpr const char* kStatus = "org.a11y.Status";
constexpr const char* kIsEnabled = "IsEnabled";

const BusObject& accessibilityService() {
  static const BusObject object{"org.a11y.Bus", "/org/a11y/bus"};
  return object;
}

/// Qt decides at the start of an application whether it publishes anything (Qt 5.15, 6.4).
bool usesQt(std::int32_t process) {
  std::ifstream maps("/proc/" + std::to_string(process) + "/maps");
  for (std::string line; std::getline(maps, line);) {
    if (line.find("/libQt5Gui.so") != std::string::npos || line.find("/libQt6Gui.so") != std::string::npos) return true;
  }
  return false;
}

}  // namespace

/// The part that uses the buses, on the queue.
class MenuPublishing::Worker {
 public:
  void switchBus(bool on) {
    if (!on) {
      if (std::exchange(isOnBecauseOfUs_, false) && !hasListeners()) setEnabled(false);
      return;
    }
    // The first request may have to start the service.
    constexpr int kAttempts = 10;
    std::optional<bool> isEnabled;
    for (int i = 0; i < kAttempts && !isEnabled; ++i) isEnabled = readEnabled();
    if (!isEnabled.value_or(true)) {
      isOnBecauseOfUs_ = true;
      setEnabled(true);
    }
    // Starts the bus: Qt 5 publishes nothing when it finds the switch on and no bus yet.
    accessibilityBusAddress(session_);
  }

  void look(const Processes& processes) {
    isLooking = false;
    const auto published = accessibleApplications(accessibilityBus_, kMaxRequestSeconds);
    if (!published) return;
    const Processes registered = registeredProcesses(session_, kMaxRequestSeconds);
    Processes found;
    for (const std::int32_t process : processes) {
      if (published->count(process) == 0 && registered.count(process) == 0 && usesQt(process)) found.insert(process);
    }
    const std::lock_guard lock(mutex_);
    unpublished_ = std::move(found);
  }

  /// Any thread.
  bool isUnpublished(std::int32_t process) const {
    const std::lock_guard lock(mutex_);
    return unpublished_.count(process) > 0;
  }

  std::atomic<bool> isLooking = false;

 private:
  std::optional<bool> readEnabled() {
    std::optional<bool> isEnabled;
    CallBatch batch(session_, kMaxRequestSeconds);
    const auto take = [&](sd_bus_message& reply) {
      int value = 0;
      if (sd_bus_message_read(&reply, "v", "b", &value) > 0) isEnabled = value != 0;
    };
    batch.call(accessibilityService(), kGet, take, "ss", kStatus, kIsEnabled);
    batch.run();
    return isEnabled;
  }

  /// A screen reader that came meanwhile needs the switch, too, and found no reason to set it.
  bool hasListeners() {
    bool hasAny = false;
    CallBatch batch(accessibilityBus_, kMaxRequestSeconds);
    const auto take = [&](sd_bus_message& reply) {
      hasAny = sd_bus_message_enter_container(&reply, 'a', "(ss)") > 0 && sd_bus_message_at_end(&reply, 0) == 0;
    };
    batch.call({"org.a11y.atspi.Registry", "/org/a11y/atspi/registry"},
               {"org.a11y.atspi.Registry", "GetRegisteredEvents"}, take);
    batch.run();
    return hasAny;
  }

  void setEnabled(bool isEnabled) {
    CallBatch batch(session_, kMaxRequestSeconds);
    batch.call(
        accessibilityService(), kSet, [](sd_bus_message& /*reply*/) {}, "ssv", kStatus, kIsEnabled, "b",
        static_cast<int>(isEnabled));
    batch.run();
  }

  BusConnection session_{sessionBusAddress};
  BusConnection accessibilityBus_{[this] { return accessibilityBusAddress(session_); }};
  bool isOnBecauseOfUs_ = false;
  mutable std::mutex mutex_;
  Processes unpublished_;
};

MenuPublishing::MenuPublishing(std::unique_ptr<SerialQueue> queue, RunningApplications running)
    : running_(std::move(running)), worker_(std::make_unique<Worker>()), queue_(std::move(queue)) {}

MenuPublishing::~MenuPublishing() = default;

void MenuPublishing::want(bool wants) {
  if (std::exchange(wants_, wants) == wants) return;
  queue_->async([worker = worker_.get(), wants] { worker->switchBus(wants); });
}

std::vector<std::string> MenuPublishing::applicationsWithoutMenus() {
  std::vector<std::string> names;
  if (!wants_) return names;
  Processes processes;
  for (RunningApplication& application : running_()) {
    const std::int32_t process = application.processIdentifier;
    if (process <= 0 || process == getpid()) continue;
    processes.insert(process);
    if (worker_->isUnpublished(process)) names.push_back(std::move(application.localizedName));
  }
  if (!worker_->isLooking.exchange(true)) {
    queue_->async([worker = worker_.get(), processes = std::move(processes)] { worker->look(processes); });
  }
  return names;
}

}  // namespace rondora::menus
