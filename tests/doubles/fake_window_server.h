#pragma once

#include <map>
#include <vector>

#include "doubles/fake_workspace.h"
#include "doubles/value_at.h"
#include "platform/front_process.h"
#include "platform/spaces.h"
#include "platform/symbolic_hot_keys.h"
#include "platform/window_list.h"

namespace rondora {

/// Windows, the front process and spaces. Unless the test sets `listed`, every running application has its last active
/// window.
class FakeWindowServer final : public WindowList, public FrontProcess, public Spaces, public SymbolicHotKeys {
 public:
  struct FrontRequest {
    std::int32_t processIdentifier = 0;
    std::uint32_t window = 0;
    std::uint32_t options = 0;
    friend bool operator==(const FrontRequest&, const FrontRequest&) = default;
  };

  explicit FakeWindowServer(FakeWorkspace& workspace) : workspace_(workspace) {}

  static WindowListEntry window(std::int32_t ownerPID, std::uint32_t number) {
    return {ownerPID, 0, number, {}, Rect{{0, 0}, {800, 600}}};
  }

  std::vector<WindowListEntry> windows() const override {
    if (listed) return *listed;
    std::vector<WindowListEntry> entries;
    for (const auto& application : workspace_.runningApplications()) {
      const auto number = static_cast<std::uint32_t>(application.window);
      if (number != 0) entries.push_back(window(application.processIdentifier, number));
    }
    return entries;
  }

  bool available() const override { return isAvailable; }
  Lookup processForPID(std::int32_t processIdentifier) const override {
    return {lookupStatus, {0, static_cast<std::uint32_t>(processIdentifier)}};
  }
  std::int32_t setFrontProcess(ProcessSerialNumber process, std::uint32_t number, std::uint32_t options) override {
    const auto processIdentifier = static_cast<std::int32_t>(process.low);
    frontRequests.push_back({processIdentifier, number, options});
    if (frontStatus == 0) workspace_.bringForward(processIdentifier);
    return frontStatus;
  }
  bool postsEventRecords() const override { return takesEventRecords; }
  void postEventRecord(ProcessSerialNumber /*process*/, const EventRecord& record) override {
    eventRecords.push_back(record);
  }

  std::optional<std::vector<std::uint64_t>> spacesForWindow(std::uint32_t number) const override {
    return valueAt(spacesOfWindows, number);
  }
  std::optional<std::vector<DisplaySpaces>> managedDisplaySpaces() const override { return displays; }
  std::optional<SymbolicHotKey> symbolicHotKey(int number) const override { return valueAt(symbolicHotKeys, number); }

  std::optional<std::vector<WindowListEntry>> listed;
  bool isAvailable = true;
  std::int32_t lookupStatus = 0;
  std::int32_t frontStatus = 0;
  std::vector<FrontRequest> frontRequests;
  bool takesEventRecords = true;
  std::vector<EventRecord> eventRecords;
  std::map<std::uint32_t, std::vector<std::uint64_t>> spacesOfWindows;
  std::optional<std::vector<DisplaySpaces>> displays;
  std::map<int, SymbolicHotKey> symbolicHotKeys;

 private:
  FakeWorkspace& workspace_;
};

}  // namespace rondora
