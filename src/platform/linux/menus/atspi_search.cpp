#include "platform/linux/menus/atspi_search.h"

#include <algorithm>
#include <chrono>
#include <utility>

namespace rondora::menus {
namespace {

constexpr const char* kRootPath = "/org/a11y/atspi/accessible/root";
/// Menu bars lie near the top of a window: enough for boxes within boxes, too few for a document.
constexpr int kMaxDepth = 6;
constexpr std::size_t kMaxObjects = 400;

struct Object {
  BusObject object;
  AtspiRole role = AtspiRole::invalid;
  AtspiStates states;
  std::string name;
  std::vector<BusObject> children;
};

/// One level of objects below others, read in one batch each.
class Search {
 public:
  Search(BusConnection& bus, double seconds) : batch_(bus, seconds) {}

  std::optional<BusObject> menuBarOf(const BusObject& application, const std::vector<std::string>& titles);

 private:
  std::vector<BusObject> childrenOf(const BusObject& object);
  std::vector<Object> describe(const std::vector<BusObject>& objects, bool isFrame);
  std::optional<BusObject> menuBarBelow(std::vector<BusObject> level);

  CallBatch batch_;
};

std::vector<BusObject> Search::childrenOf(const BusObject& object) {
  std::vector<BusObject> children;
  batch_.call(object, kGetChildren, [&](sd_bus_message& reply) { children = readChildren(reply); });
  batch_.run();
  return children;
}

std::vector<Object> Search::describe(const std::vector<BusObject>& objects, bool isFrame) {
  std::vector<Object> described(std::min(objects.size(), kMaxObjects));
  for (std::size_t i = 0; i < described.size(); ++i) {
    Object& each = described[i];
    each.object = objects[i];
    batch_.call(each.object, kGetRole, [&each](sd_bus_message& reply) { each.role = readRole(reply); });
    batch_.call(each.object, kGetChildren, [&each](sd_bus_message& reply) { each.children = readChildren(reply); });
    if (!isFrame) continue;
    batch_.call(each.object, kGetState, [&each](sd_bus_message& reply) { each.states = readStates(reply); });
    requestName(batch_, each.object, [&each](sd_bus_message& reply) { each.name = readTextProperty(reply); });
  }
  batch_.run();
  return described;
}

/// In the order of the titles; of frames with the same title the active one first.
std::optional<BusObject> Search::menuBarOf(const BusObject& application, const std::vector<std::string>& titles) {
  auto frames = describe(childrenOf(application), true);
  const auto rank = [&](const Object& frame) {
    return std::pair(std::ranges::find(titles, frame.name) - titles.begin(), !frame.states.isActive());
  };
  std::stable_sort(frames.begin(), frames.end(),
                   [&](const Object& one, const Object& other) { return rank(one) < rank(other); });
  for (Object& frame : frames) {
    if (auto bar = menuBarBelow(std::move(frame.children))) return bar;
  }
  return std::nullopt;
}

std::optional<BusObject> Search::menuBarBelow(std::vector<BusObject> level) {
  for (int depth = 0; depth < kMaxDepth && !level.empty(); ++depth) {
    std::vector<BusObject> next;
    for (Object& object : describe(level, false)) {
      if (object.role == AtspiRole::menuBar) return object.object;
      next.insert(next.end(), object.children.begin(), object.children.end());
    }
    level = std::move(next);
  }
  return std::nullopt;
}

}  // namespace

std::optional<std::multimap<std::int32_t, std::string>> accessibleApplications(BusConnection& bus, double seconds) {
  CallBatch batch(bus, seconds);
  std::multimap<std::int32_t, std::string> services;
  batch.call({"org.a11y.atspi.Registry", kRootPath}, kGetChildren, [&](sd_bus_message& reply) {
    for (const auto& [service, path] : readChildren(reply)) {
      requestProcess(batch, service,
                     [&services, service = service](std::int32_t process) { services.emplace(process, service); });
    }
  });
  if (!batch.run()) return std::nullopt;
  return services;
}

std::optional<BusObject> findMenuBar(BusConnection& bus, std::int32_t processIdentifier,
                                     const std::vector<std::string>& titles, const Deadline& deadline) {
  const auto applications = accessibleApplications(bus, deadline.secondsLeft());
  if (!applications) return std::nullopt;
  const auto [first, last] = applications->equal_range(processIdentifier);
  for (auto service = first; service != last; ++service) {
    if (auto bar = Search(bus, deadline.secondsLeft()).menuBarOf({service->second, kRootPath}, titles)) return bar;
  }
  return std::nullopt;
}

}  // namespace rondora::menus
