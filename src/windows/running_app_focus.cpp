#include "windows/running_app_focus.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <utility>

#include "platform/ax_names.h"

namespace rondora {
namespace {

using Elements = std::vector<AXElementRef>;

constexpr std::uint32_t kUserGenerated = 0x200;
constexpr double kMinSide = 100;            // points
constexpr double kMessagingTimeout = 0.25;  // seconds

bool isVisible(const WindowListEntry::Alpha& alpha) {
  if (std::holds_alternative<std::monostate>(alpha)) return true;
  const double* value = std::get_if<double>(&alpha);
  return value && *value > 0;
}

bool isEligible(const WindowListEntry& window, std::int32_t ownerPID) {
  return window.ownerPID == ownerPID && window.layer == 0 && window.number && isVisible(window.alpha) &&
         window.bounds && window.bounds->size.width >= kMinSide && window.bounds->size.height >= kMinSide;
}

// An event record that makes a window the key window, in two phases.
constexpr std::size_t kRecordLength = 4;
constexpr std::size_t kRecordPhase = 8;
constexpr std::size_t kRecordFilled = 32;
constexpr std::size_t kFilledLength = 16;
constexpr std::uint8_t kFilling = 0xFF;
constexpr std::size_t kRecordMark = 58;
constexpr std::uint8_t kMark = 0x10;
constexpr std::size_t kRecordWindow = 60;
constexpr std::array<std::uint8_t, 2> kPhases = {1, 2};

FrontProcess::EventRecord keyWindowRecord(std::uint32_t window, std::uint8_t phase) {
  FrontProcess::EventRecord record{};
  record[kRecordLength] = static_cast<std::uint8_t>(record.size());
  record[kRecordPhase] = phase;
  std::fill_n(record.begin() + kRecordFilled, kFilledLength, kFilling);
  record[kRecordMark] = kMark;
  for (std::size_t i = 0; i < sizeof window; ++i)
    record[kRecordWindow + i] = static_cast<std::uint8_t>(window >> (8 * i));
  return record;
}

bool isStandard(const AXElement& window) {
  return attributeOf<std::string>(window, ax::kSubrole) == ax::kStandardWindow;
}

std::optional<bool> isMinimized(const AXElement& window) { return attributeOf<bool>(window, ax::kMinimized); }

/// The first standard window whose minimised state can be read and is `minimized`.
AXElementRef firstStandardWindow(const Elements& windows, bool minimized) {
  const auto found = std::find_if(windows.begin(), windows.end(), [minimized](const AXElementRef& window) {
    return isStandard(*window) && isMinimized(*window) == minimized;
  });
  return found == windows.end() ? nullptr : *found;
}

}  // namespace

RunningAppFocus::RunningAppFocus(const Ports& ports, std::unique_ptr<SerialQueue> accessibilityQueue)
    : ports_(ports), accessibilityQueue_(std::move(accessibilityQueue)) {}

bool RunningAppFocus::focus(const RunningApplication& application) {
  const std::string bundleID = application.bundleIdentifier.value_or("?");
  const std::int32_t pid = application.processIdentifier;
  if (!ports_.frontProcess.available()) return fail(bundleID, "SkyLight symbols unavailable");
  const auto window = frontmostWindowID(ports_.windowList.windows(), pid);
  if (!window) return fail(bundleID, "no eligible window");
  const auto process = ports_.frontProcess.processForPID(pid);
  if (process.status != 0) return fail(bundleID, "GetProcessForPID failed " + std::to_string(process.status));
  if (application.isHidden) ports_.workspace.unhide(application);
  const auto result = ports_.frontProcess.setFrontProcess(process.serialNumber, *window, kUserGenerated);
  if (result != 0) return fail(bundleID, "SLPSSetFrontProcess failed " + std::to_string(result));
  makeKeyWindow(*window, process.serialNumber);
  accessibilityQueue_->async([this, window = *window, pid, bundleID] { raiseWindow(window, pid, bundleID); });
  return true;
}

std::optional<std::uint32_t> RunningAppFocus::frontmostWindowID(const std::vector<WindowListEntry>& windows,
                                                                std::int32_t ownerPID) {
  const auto found = std::find_if(windows.begin(), windows.end(),
                                  [ownerPID](const WindowListEntry& window) { return isEligible(window, ownerPID); });
  return found == windows.end() ? std::nullopt : found->number;
}

void RunningAppFocus::makeKeyWindow(std::uint32_t window, ProcessSerialNumber process) {
  if (!ports_.frontProcess.postsEventRecords()) return;
  for (const std::uint8_t phase : kPhases) {
    ports_.frontProcess.postEventRecord(process, keyWindowRecord(window, phase));
  }
}

void RunningAppFocus::raiseWindow(std::uint32_t window, std::int32_t ownerPID, const std::string& bundleID) {
  if (!ports_.permissions.isProcessTrusted()) return note(bundleID, "AX not trusted, skip raise");
  const AXElementRef application = ports_.accessibility.application(ownerPID);
  if (!application) return;
  application->setMessagingTimeout(kMessagingTimeout);
  const auto windows = attributeOf<Elements>(*application, ax::kWindows).value_or(Elements());
  for (const AXElementRef& each : windows) each->setMessagingTimeout(kMessagingTimeout);
  const AXElementRef open = firstStandardWindow(windows, false);
  const AXElementRef minimized = open ? nullptr : firstStandardWindow(windows, true);
  if (minimized) {
    note(bundleID, "restoring minimized window");
    minimized->setAttribute(ax::kMinimized, false);
    raise(*minimized);
    return;
  }
  AXElementRef target = windowElement(windows, window, ownerPID);
  if (!target) return ports_.spaceSwitcher.switchSpaceWithSystemShortcut(window, bundleID);
  if (open && isMinimized(*target) == true) target = open;
  if (!raise(*target)) ports_.spaceSwitcher.switchSpaceWithSystemShortcut(window, bundleID);
}

/// An application that is busy raises its window later: no answer in time is no refusal.
bool RunningAppFocus::raise(AXElement& window) const {
  window.setMessagingTimeout(kMessagingTimeout);
  window.setAttribute(ax::kMain, true);
  const double start = ports_.clock.uptime();
  return window.perform(ax::kRaise) || ports_.clock.uptime() - start >= kMessagingTimeout;
}

AXElementRef RunningAppFocus::windowElement(const Elements& windows, std::uint32_t window, std::int32_t ownerPID) {
  const auto found = std::find_if(windows.begin(), windows.end(), [window](const AXElementRef& candidate) {
    const std::uint32_t number = candidate->windowNumber();
    return number != 0 && number == window;
  });
  if (found != windows.end()) return *found;
  return ports_.accessibility.windowByRemoteToken(ownerPID, window);
}

bool RunningAppFocus::fail(const std::string& bundleID, const std::string& reason) {
  note(bundleID, reason);
  return false;
}

void RunningAppFocus::note(const std::string& bundleID, const std::string& what) {
  ports_.log.standard("focus " + bundleID + ": " + what);
}

}  // namespace rondora
